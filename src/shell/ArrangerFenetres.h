// Arrangements of document windows. QMdiArea's own make them as small as they can be, or know one kind of mosaic.
#pragma once

#include <QMdiArea>
#include <QRect>

enum class Mosaique {
    Horizontale, ///< one above the other, each as wide as the area
    Verticale    ///< side by side, each as high as the area
};

/// Puts the windows that are not reduced one behind the other, each a step to the right and down. They keep their
/// order: the one that the user works in stays in front.
void DisposerEnCascade(const QMdiArea& zone);

/// Where a cascade puts the window of a rank, from 0, and how large.
QRect PlaceEnCascade(const QMdiArea& zone, int rang, QSize taille);

/// Shares the area out among the windows that are not reduced, oldest first.
void DisposerEnMosaique(const QMdiArea& zone, Mosaique sens);

/// Lines the reduced windows up at the area's lower edge, oldest first, from the left and then row upon row.
void ArrangerIcones(const QMdiArea& zone);
