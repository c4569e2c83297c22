// Bringing a window to the front when another instance asks for it.
#pragma once

class QString;
class QWidget;

/// Restores a minimised window (a maximised one comes back maximised), raises and activates it, or the modal dialog
/// that is open over it. `jeton` is what the desktop gave to the start that asks; without it some desktops only mark
/// the window in their bar.
void MettreAuPremierPlan(QWidget& fenetre, const QString& jeton);
