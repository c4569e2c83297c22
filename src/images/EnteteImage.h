// What the head of a picture file tells before anything is decoded: its kind, its size, and what decoding it would
// cost. Foreign bytes are read here; nothing in them can make this take memory or time.
#pragma once

#include <QByteArray>
#include <QSize>

#include <optional>

class QIODevice;

/// Pictures with more points are not decoded: at any size that would keep the program waiting.
constexpr qint64 PointsAuPlus = qint64(256) << 20;

struct EnteteImage
{
    /// The name by which Qt knows the kind: "bmp", "gif", "jpeg", "png". The bytes tell it, not the file's name: covers
    /// are often named for another kind.
    QByteArray format;
    QSize taille;
    /// Bytes that the decoder holds at once, whatever size is asked of it.
    qint64 memoire = 0;
    /// How often it goes over the whole picture.
    int passages = 1;
};

/// Reads the head from the start of `fichier`, which can be read from any place. Nothing for bytes that are no picture
/// of these kinds, or of no size.
std::optional<EnteteImage> LireEntete(QIODevice& fichier);

/// False for a picture that would swell the program or keep it waiting: such a one is not decoded.
bool EstSupportable(const EnteteImage& entete);
