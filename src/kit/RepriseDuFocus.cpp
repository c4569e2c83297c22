#include "kit/RepriseDuFocus.h"

#include "kit/FenetreDessous.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <chrono>

using namespace std::chrono_literals;

RepriseDuFocus::RepriseDuFocus()
{
    m_delai.setSingleShot(true);
    m_delai.setInterval(100ms); // in which a window manager says who has the keys
    m_delai.callOnTimeout(&RepriseDuFocus::Reprendre);
    QCoreApplication::instance()->installEventFilter(this);
}

/// A window under a dialog is free again. Where another program has the keys they stay there.
bool RepriseDuFocus::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::WindowUnblocked && QGuiApplication::applicationState() == Qt::ApplicationActive)
        m_delai.start();
    return QObject::eventFilter(objet, event);
}

void RepriseDuFocus::Reprendre()
{
    if (QApplication::activeWindow())
        return;
    QWidget* modale = QApplication::activeModalWidget();
    if (QWidget* fenetre = modale ? modale : FenetreDessous())
        fenetre->activateWindow();
}
