// The pop-up menus. Of them, the menu of the tabs is here so far.
#pragma once

#include <QWidget>

class MDIForm1;
class QAction;
class QMenu;

/// Never shown itself: it owns the menus.
class frmPopup : public QWidget
{
    Q_OBJECT

public:
    explicit frmPopup(MDIForm1& cadre);

    /// Pops up mMenuMdiTab. Its commands act on the tab on which a mouse button was last released.
    void MontrerMenuMdiTab(const QPoint& endroit);

private:
    QAction* Ajouter(const QString& nom, const QString& caption);

    MDIForm1& m_cadre;
    QMenu* m_menuMdiTab;
    QAction* m_fermerTout;
};
