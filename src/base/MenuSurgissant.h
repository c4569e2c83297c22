// The one door from dialogs to the pop-up menus, which one form owns. What shows them is a presenter: that form in the
// program, a prepared answer in tests.
#pragma once

#include <QPoint>
#include <QString>

class PresentateurMenus
{
public:
    virtual ~PresentateurMenus() = default;
    /// See ChoisirDansMenu.
    virtual QString Choisir(const QString& menu, const QPoint& endroit) = 0;
};

/// Installs the presenter (not owned) and returns the one before. Without any, nothing is chosen.
PresentateurMenus* InstallerPresentateur(PresentateurMenus* presentateur);

/// Pops up the menu `menu` ("MenuExporte", "mMenuSupprimer") at a point of the screen, and waits for the choice: the
/// name of the item; empty when the menu was left, or there is none of that name.
QString ChoisirDansMenu(const QString& menu, const QPoint& endroit);
