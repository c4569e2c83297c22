// What tells the bytes of a file from those that stood there before and after.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

/// Who has only read a file, or dated its last access, leaves its trace as it was.
struct TraceDeFichier
{
    uint64_t peripherique = 0;
    uint64_t inode = 0;
    uint64_t taille = 0; ///< bytes
    int64_t modifie = 0; ///< nanoseconds
    friend bool operator==(const TraceDeFichier&, const TraceDeFichier&) = default;

    /// Whether there was a file at all.
    explicit operator bool() const { return inode != 0; }
};

/// The file that a path names, through symbolic links; none for what is not there, cannot be looked at or is no regular
/// file.
TraceDeFichier TraceDe(const QString& chemin);

/// As a word for another run. The device is not in it: its number may be another one then.
QByteArray VersMot(const TraceDeFichier& trace);
/// Nothing when it is no such word.
std::optional<TraceDeFichier> DepuisMot(const QByteArray& mot);
