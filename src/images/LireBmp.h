// Bitmaps that are too large to be held: they are reduced while they are read.
#pragma once

#include <QImage>

class QIODevice;

/// A bitmap of 24 or 32 bits a point without compression, reduced by a whole number so that it is still at least as
/// large as its share of `place`. Holds one line of the file at a time. Null for anything else, and for a file that is
/// shorter than its head says.
QImage LireBmpReduit(QIODevice& fichier, const QSize& place);
