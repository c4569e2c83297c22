#include "platform/Retenue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QPointer>
#include <QSocketNotifier>
#include <QVariant>

#include <memory>
#include <utility>

namespace {

constexpr const char* s_exception = "zelvane_servi_toujours";

/// Sees every event of the thread. Event loops differ in whether they can leave sockets out, so it is done here.
class Filtre : public QObject
{
public:
    bool eventFilter(QObject* objet, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::SockAct:
        case QEvent::SockClose:
            return Taire(qobject_cast<QSocketNotifier*>(objet));
        case QEvent::Quit:
            if (objet != QCoreApplication::instance())
                return false;
            m_fin = true;
            return true;
        default:
            return false;
        }
    }

    /// What was silenced speaks again: what has arrived is still there.
    void Rendre()
    {
        for (const QPointer<QSocketNotifier>& guetteur : std::exchange(m_tus, {})) {
            if (guetteur)
                guetteur->setEnabled(true);
        }
        if (std::exchange(m_fin, false))
            QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
    }

private:
    bool Taire(QSocketNotifier* guetteur)
    {
        if (!guetteur || EstExcepte(guetteur))
            return false;
        guetteur->setEnabled(false);
        m_tus.append(guetteur);
        return true;
    }

    static bool EstExcepte(const QObject* objet)
    {
        while (objet && !objet->property(s_exception).toBool())
            objet = objet->parent();
        return objet;
    }

    QList<QPointer<QSocketNotifier>> m_tus;
    bool m_fin = false;
};

int s_combien = 0;

std::unique_ptr<Filtre>& LeFiltre()
{
    static std::unique_ptr<Filtre> filtre;
    return filtre;
}

struct Attente
{
    QPointer<QObject> contexte;
    std::function<void()> suite;
};

QList<Attente>& Attentes()
{
    static QList<Attente> attentes;
    return attentes;
}

void Servir();

void PrevoirDeServir()
{
    if (!Attentes().isEmpty())
        QMetaObject::invokeMethod(QCoreApplication::instance(), Servir, Qt::QueuedConnection);
}

/// The next one. Its turn may come while something is held back anew: the end of that calls again.
void Servir()
{
    if (Retenue::EnCours() || Attentes().isEmpty())
        return;
    // The keys that were pressed meanwhile come first: they are meant for what the user saw then.
    QCoreApplication::processEvents();
    if (Retenue::EnCours() || Attentes().isEmpty())
        return;
    const Attente premiere = Attentes().takeFirst();
    PrevoirDeServir(); // now: the call may run an event loop of its own
    if (premiere.contexte)
        premiere.suite();
}

} // namespace

Retenue::Retenue()
{
    if (s_combien++ > 0 || !QCoreApplication::instance())
        return;
    LeFiltre() = std::make_unique<Filtre>();
    QCoreApplication::instance()->installEventFilter(LeFiltre().get());
}

Retenue::~Retenue()
{
    if (--s_combien > 0)
        return;
    if (const std::unique_ptr<Filtre> filtre = std::exchange(LeFiltre(), nullptr))
        filtre->Rendre();
    PrevoirDeServir();
}

bool Retenue::EnCours()
{
    return s_combien > 0;
}

void Retenue::Apres(QObject* contexte, std::function<void()> suite)
{
    if (EnCours() || !Attentes().isEmpty())
        Attentes().append({contexte, std::move(suite)});
    else
        suite();
}

void Retenue::Excepter(QObject* objet)
{
    objet->setProperty(s_exception, true);
}
