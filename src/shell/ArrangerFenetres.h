// Arrangements of document windows that QMdiArea does not offer itself.
#pragma once

#include <QMdiArea>

enum class Mosaique {
    Horizontale, ///< one above the other, each as wide as the area
    Verticale    ///< side by side, each as high as the area
};

/// Shares the area out among the windows that are not reduced, oldest first.
void DisposerEnMosaique(const QMdiArea& zone, Mosaique sens);

/// Lines the reduced windows up at the area's lower edge, oldest first, from the left and then row upon row.
void ArrangerIcones(const QMdiArea& zone);
