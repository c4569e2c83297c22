#include "shell/MenusEnPlace.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

MenusEnPlace::MenusEnPlace(QMenuBar& barre, QMdiArea& fenetres, QObject* parent)
    : QObject(parent), m_barre(barre), m_fenetres(fenetres), m_duCadre(barre.actions())
{
    connect(&fenetres, &QMdiArea::subWindowActivated, this, &MenusEnPlace::Changer);
}

/// One bar whose menus change, not one bar for another: the buttons of a maximised document live in its corners.
void MenusEnPlace::Changer()
{
    const QMdiSubWindow* active = m_fenetres.currentSubWindow();
    const auto* document = active ? qobject_cast<QMainWindow*>(active->widget()) : nullptr;
    const QList<QAction*> menus = document ? document->menuBar()->actions() : m_duCadre;
    if (m_barre.actions() == menus)
        return;
    for (QAction* menu : m_barre.actions())
        m_barre.removeAction(menu);
    m_barre.addActions(menus);
}
