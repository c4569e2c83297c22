// Whether a drawing of vectors (SVG) may be drawn. Such a file is a small program: it can name other files of this
// computer, and a few lines of it can take hours.
#pragma once

#include "images/ConvertirImage.h"

#include <QByteArray>

/// Vectors with more bytes are not looked at.
constexpr qint64 OctetsDeVecteursAuPlus = qint64(4) << 20;

/// Reads the text of an SVG file without drawing it. Convertie: it may be drawn. Illisible: it is broken, or leads to
/// another file or to another drawing that would have to be judged. TropGrande: drawing it could take a long time or
/// much memory.
Aptitude JugerVecteurs(const QByteArray& octets);
