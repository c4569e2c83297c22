// Decodes picture files for the room they are shown in: BMP, JPEG, GIF (the first picture of an animation) and PNG.
#pragma once

#include <QImage>
#include <QString>

/// The picture of a file as large as `place` (in device pixels, at least 1 by 1) allows, its proportions kept, turned
/// as the camera says; a small one is not blown up. What is not needed at that size is not decoded, as far as the kind
/// allows. Null for a file that is no picture, is broken, or would take too much memory or time. May run in any thread.
QImage LireImage(const QString& fichier, const QSize& place);
