#include "shell/NavigationClavier.h"

#include "shell/BandeOnglets.h"
#include "shell/BarreOutils.h"

#include <QApplication>
#include <QShortcut>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr int NombreDeZones = 3;

bool Tient(const QWidget& zone, const QWidget* focus)
{
    return focus == &zone || zone.isAncestorOf(focus);
}

} // namespace

NavigationClavier::NavigationClavier(QWidget& cadre, std::vector<BarreOutils*> barres, BandeOnglets& onglets,
                                     std::function<QWidget*()> document)
    : QObject(&cadre), m_barres(std::move(barres)), m_onglets(onglets), m_document(std::move(document))
{
    const auto touches = [&cadre, this](std::initializer_list<QKeyCombination> combinaisons, auto&& agir) {
        for (const QKeyCombination touche : combinaisons) {
            auto* raccourci = new QShortcut(QKeySequence(touche), &cadre);
            connect(raccourci, &QShortcut::activated, this, agir);
        }
    };
    touches({Qt::Key_F6}, [this] { ChangerDeZone(1); });
    touches({Qt::SHIFT | Qt::Key_F6}, [this] { ChangerDeZone(-1); });
    touches({Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}, [this] { ChangerDOnglet(1); });
    // Shift and Tab come as a key of their own.
    touches({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, Qt::CTRL | Qt::Key_PageUp},
            [this] { ChangerDOnglet(-1); });
    for (const BarreOutils* barre : m_barres)
        connect(barre, &BarreOutils::Quittee, this, &NavigationClavier::RevenirAuDocument);
    connect(&m_onglets, &BandeOnglets::Quittee, this, &NavigationClavier::RevenirAuDocument);
}

NavigationClavier::Zone NavigationClavier::ZoneCourante() const
{
    const QWidget* focus = QApplication::focusWidget();
    if (Tient(m_onglets, focus))
        return Zone::Onglets;
    const bool barre = std::ranges::any_of(m_barres, [focus](const BarreOutils* b) { return Tient(*b, focus); });
    return barre ? Zone::Barre : Zone::Document;
}

/// False where there is nothing to go to.
bool NavigationClavier::Aller(Zone zone)
{
    switch (zone) {
    case Zone::Document:
        if (QWidget* document = m_document()) {
            document->setFocus(Qt::ShortcutFocusReason);
            return true;
        }
        return false;
    case Zone::Barre:
        return std::ranges::any_of(m_barres, [](BarreOutils* barre) { return barre->PrendreLesTouches(); });
    case Zone::Onglets:
        if (m_onglets.count() > 0)
            m_onglets.setFocus(Qt::ShortcutFocusReason);
        return m_onglets.count() > 0;
    }
    return false;
}

void NavigationClavier::ChangerDeZone(int sens)
{
    const int depart = static_cast<int>(ZoneCourante());
    for (int pas = 1; pas < NombreDeZones; ++pas) {
        const int zone = (depart + NombreDeZones + sens * pas) % NombreDeZones;
        if (Aller(static_cast<Zone>(zone)))
            return;
    }
}

void NavigationClavier::RevenirAuDocument()
{
    if (!Aller(Zone::Document) && QApplication::focusWidget())
        QApplication::focusWidget()->clearFocus();
}

void NavigationClavier::ChangerDOnglet(int sens)
{
    const int nombre = m_onglets.count();
    if (nombre > 0)
        m_onglets.Presser((m_onglets.currentIndex() + nombre + sens) % nombre + 1);
}
