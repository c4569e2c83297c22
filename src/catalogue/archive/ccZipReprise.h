// What is known of an archive and of the folder files that it holds: a save takes their compressed bytes over from
// there instead of compressing them again.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// One byte of an archive that is to be read as another one.
struct Retouche
{
    uint64_t place = 0;
    char octet = 0;
};

/// One state of a file on the disk. Where it is the same as before, so are the bytes: every write moves the time of the
/// last change, which no program can set.
struct EtatFichier
{
    uint64_t peripherique = 0;
    uint64_t inode = 0;
    uint64_t taille = 0; ///< bytes
    int64_t modifie = 0; ///< time of the last write, nanoseconds; programs may set it
    int64_t change = 0;  ///< time of the last change of anything, its name and rights included
    friend bool operator==(const EtatFichier&, const EtatFichier&) = default;
};

/// An archive, and the files that it holds as they lay in the folder when it was read or written.
struct ArchiveConnue
{
    struct Fichier
    {
        uint64_t index; ///< of the entry, from 0
        EtatFichier etat;
        bool sur = true; ///< a file in this state has the entry's bytes; otherwise it was written to around that time
    };
    QString chemin;
    EtatFichier etat;
    int niveau = 0;                      ///< deflate level of its entries
    QHash<QByteArray, Fichier> fichiers; ///< by name in the folder, which a new archive has too; UTF-8
    std::vector<Retouche> retouches;     ///< without which the library does not read it; the lowest place first
};

/// A known archive that is held open: it stays readable when its name goes.
class OrigineZip;
struct FermerOrigine
{
    void operator()(OrigineZip* origine) const;
};
using Origine = std::unique_ptr<OrigineZip, FermerOrigine>;
/// Opens a known archive; null when nothing is known, or it is not to be had any more, or another one by now.
Origine OuvrirOrigine(std::shared_ptr<const ArchiveConnue> connue);

/// Brings files of a known archive back into a folder, as they were, their sums checked; `noms` are among its
/// `fichiers`, whose states are the new ones then. Returns the names of those that are there again: none where the
/// archive is not to be had any more, and none that is encrypted.
QSet<QByteArray> RapporterFichiers(const std::shared_ptr<ArchiveConnue>& connue, const QList<QByteArray>& noms,
                                   const QString& dossier);
