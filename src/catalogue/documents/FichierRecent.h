// The five most recently used catalogues, in the settings FRecent1 (newest) to FRecent5. Paths are compared exactly.
#pragma once

#include <QString>

/// Moves the path to the top. One that stood in the fifth place is not looked for there: all move down, and the fifth
/// is lost, which is that path.
void AjouterRecent(const QString& chemin);

/// Takes the path out; those below move up.
void RetirerRecent(const QString& chemin);

/// The items of a window's menu of recent files.
class MenuRecents
{
public:
    virtual ~MenuRecents() = default;
    /// Item 0 to 4: its caption is the path; an empty path hides it.
    virtual void MettreRecent(int index, const QString& chemin) = 0;
    /// Shows or hides mBarRecent, the separator above the items.
    virtual void MontrerBarRecent(bool visible) = 0;
};

/// Rewrites a window's items from the settings.
void MajMenuRecents(MenuRecents& fenetre);
