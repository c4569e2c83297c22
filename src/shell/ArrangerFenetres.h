// Arrangements of document windows. QMdiArea's own make them as small as they can be, or know one kind of mosaic.
#pragma once

#include <QList>
#include <QMdiArea>
#include <QRect>

enum class Mosaique {
    Horizontale, ///< one above the other, as long as they are high enough
    Verticale    ///< side by side, as long as they are wide enough
};

/// Puts the windows that are not reduced one behind the other, each a step to the right and down. They keep their
/// order: the one that the user works in stays in front.
void DisposerEnCascade(const QMdiArea& zone);

/// Where a cascade puts the window of a rank, from 0, and how large.
QRect PlaceEnCascade(const QMdiArea& zone, int rang, QSize taille);

/// Shares the area out among the windows that are not reduced, oldest first.
void DisposerEnMosaique(const QMdiArea& zone, Mosaique sens);

/// The places of `nombre` windows in a mosaic that fills `place` without a gap. Where they would be smaller than
/// `auMoins` in the direction of the mosaic, they stand in several columns, or rows.
QList<QRect> PlacesEnMosaique(QSize place, int nombre, Mosaique sens, QSize auMoins);

/// Lines the reduced windows up at the area's lower edge, oldest first, from the left and then row upon row.
void ArrangerIcones(const QMdiArea& zone);
