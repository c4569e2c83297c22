// The pop-up menu of the list in the dialog frmSuppr. The form that owns the program's pop-up menus stands above the
// dialog and installs itself here.
#pragma once

#include <functional>

class QPoint;

enum class ChoixSupprimer { Aucun, Cocher, Decocher, ToutCocher, ToutDecocher, Inverser };

/// Pops the menu up at a place of the screen, and returns what the user chose once it is closed.
using MenuSupprimer = std::function<ChoixSupprimer(const QPoint& place)>;

/// Installs the menu and returns the one before. Without any, no menu pops up.
MenuSupprimer InstallerMenuSupprimer(MenuSupprimer menu);
/// Pops the installed menu up.
ChoixSupprimer DemanderMenuSupprimer(const QPoint& place);
