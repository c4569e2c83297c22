#include "shell/VeilleSecours.h"

#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/SecoursDesDocuments.h"
#include "platform/Plateforme.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include <utility>

namespace {

constexpr int EntreDeuxRegards = 1000; // milliseconds
constexpr int EntreDeuxPieces = 5;     // leaves the screen more time than it takes

bool EstTouche(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::DragMove:
        return true;
    default:
        return false;
    }
}

} // namespace

VeilleSecours::Montre VeilleSecours::MontreDuSysteme()
{
    QElapsedTimer depuis;
    depuis.start();
    return [depuis] { return depuis.elapsed(); };
}

VeilleSecours::VeilleSecours(Cadre& cadre, Montre montre)
    : m_cadre(cadre), m_montre(std::move(montre)), m_signaux([this] { AvantLaFin(); })
{
    if (Composants* composants = plateforme().composants)
        composants->AvantLaFin = [this] { AvantLaFin(); };
    m_battement.setSingleShot(true);
    connect(&m_battement, &QTimer::timeout, this, &VeilleSecours::Battre);
    m_battement.start(EntreDeuxRegards);
    qGuiApp->installEventFilter(this);
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) { Repondre(session); },
        Qt::DirectConnection);
}

VeilleSecours::~VeilleSecours()
{
    if (Composants* composants = plateforme().composants)
        composants->AvantLaFin = nullptr;
}

void VeilleSecours::AvantLaFin() const
{
    LaisserAuSecours(m_cadre);
    plateforme().reglages->Deposer();
}

bool VeilleSecours::eventFilter(QObject* objet, QEvent* event)
{
    if (EstTouche(event->type())) {
        m_derniereTouche = m_montre();
        if (std::exchange(m_finPermise, false))
            ReprendreLaSession(m_cadre);
    }
    return QObject::eventFilter(objet, event);
}

void VeilleSecours::Battre()
{
    const bool encore = AvancerLesSecours(m_cadre, {m_montre(), m_derniereTouche});
    const qint64 heure = plateforme().horloge->Maintenant().toMSecsSinceEpoch();
    const bool encoreDates = m_fraicheur.Avancer(m_cadre, heure);
    m_battement.start(encore || encoreDates ? EntreDeuxPieces : EntreDeuxRegards);
}

bool VeilleSecours::FinirLaSession(bool questions)
{
    m_finPermise = PeutFinirLaSession(m_cadre, questions);
    return m_finPermise;
}
