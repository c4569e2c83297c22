#include "shell/PanneauDAttente.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QWindow>

namespace {

/// A window that has only just been made is drawn when the display has answered.
constexpr int AttenteAuPlus = 300; // milliseconds
constexpr auto SansSaisie = QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers;

bool EstAffiche(const QWidget& panneau)
{
    const QWindow* fenetre = panneau.window()->windowHandle();
    return fenetre && fenetre->isExposed();
}

} // namespace

void PanneauDAttente::Montrer(bool visible)
{
    setVisible(visible);
    if (!isVisible())
        return;
    raise();
    const QDeadlineTimer delai(AttenteAuPlus);
    while (!EstAffiche(*this) && !delai.hasExpired())
        QCoreApplication::processEvents(SansSaisie, 10);
    QCoreApplication::processEvents(SansSaisie);
}
