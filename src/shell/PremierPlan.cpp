#include "shell/PremierPlan.h"

#include <QApplication>
#include <QString>
#include <QWidget>

void MettreAuPremierPlan(QWidget& fenetre, const QString& jeton)
{
    // Qt takes the token for the next activation from there, and takes it away. Elsewhere it would stay and be handed
    // on to every program that is started.
    if (!jeton.isEmpty() && QApplication::platformName().startsWith(QLatin1String("wayland")))
        qputenv("XDG_ACTIVATION_TOKEN", jeton.toLocal8Bit());
    fenetre.setWindowState(fenetre.windowState() & ~Qt::WindowMinimized);
    fenetre.raise();
    // Keys that reach a window behind a modal dialog are lost.
    QWidget* modale = QApplication::activeModalWidget();
    QWidget& devant = modale ? *modale : fenetre;
    devant.raise();
    devant.activateWindow();
}
