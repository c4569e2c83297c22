// The pop-up menus of the frame, of the document windows and of some dialogs.
#pragma once

#include "base/MenuSurgissant.h"
#include "shell/ItemsDeCommandes.h"

#include <QMainWindow>

#include <memory>

class MDIForm1;

namespace Ui {
class frmPopup;
}

/// Never shown itself: it owns the menus. What dialogs on lower floors choose from its menus they ask for by way of
/// ChoisirDansMenu.
class frmPopup : public QMainWindow, public PresentateurMenus
{
    Q_OBJECT

public:
    explicit frmPopup(MDIForm1& cadre);
    ~frmPopup() override;

    /// Pops up the menu of the table and the picture: MenuClickDroit with entries selected, MenuClickDroit3 without.
    void MontrerMenuClickDroit(bool avecSelection, const QPoint& endroit);
    /// Pops up mMenuMdiTab. Its commands act on the tab on which a mouse button was last released.
    void MontrerMenuMdiTab(const QPoint& endroit);

    QString Choisir(const QString& menu, const QPoint& endroit) override;

private:
    void RelierOnglets();

    MDIForm1& m_cadre;
    ItemsDeCommandes m_items;
    std::unique_ptr<Ui::frmPopup> m_ui;
    PresentateurMenus* m_precedent;
};
