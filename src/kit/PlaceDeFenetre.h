// Where a window lies: wholly on a screen, and the next time where the user left it.
#pragma once

#include <QSize>

class QWidget;
struct OptionTexte;

/// How large a window can be so that it lies whole on its screen, its border included.
QSize PlaceDansLEcran(const QWidget& fenetre);

/// Gives the window the size, place and state (maximised or not) that the setting holds, and writes them there whenever
/// it is hidden, which closing does. A place that lies on no screen any more is brought back onto one. Without a
/// setting, or when the screen is quite another one, the window stays as it is. To be called before it is shown.
void GarderLaPlace(QWidget& fenetre, const OptionTexte& option);
