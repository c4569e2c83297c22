// Catalogue archives: one object lists an archive, adds files to it, or extracts it.
#pragma once

#include "catalogue/archive/ccZipReprise.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

class PlaceDuFichier;

/// What archive operations return, with the numbers of Info-ZIP. From 2 on the operation has failed.
enum ResultatZip {
    ZipFait = 0,
    ZipAvertissement = 1, ///< done, but something was passed over
    ZipDonnees = 2,       ///< an entry's bytes are damaged, or not what its size and checksum say
    ZipFormat = 3,        ///< not an archive, or one that contradicts itself
    ZipMemoire = 4,
    ZipTropGrand = 6,     ///< an entry is larger than the limit
    ZipIntrouvable = 9,   ///< there is no such archive
    ZipAucunFichier = 11, ///< no entry matches the mask
    ZipEcriture = 14,     ///< the archive could not be written to its end
    ZipCreation = 15,     ///< the archive could not be created or put in its place
    ZipLecture = 18,      ///< a file to be added cannot be read
    ZipDisque = 50,       ///< the disk is full, would become full, or refuses a file
    ZipTronque = 51,      ///< the archive ends too early
    ZipAbandon = 80,      ///< the user did not want it
    ZipMethode = 81,      ///< a compression or an encryption that is not known here
    ZipMotDePasse = 82,   ///< no password was given, or a wrong one
};

constexpr int NiveauDesCatalogues = 5; ///< deflate level

/// Bounds of an extraction, in bytes. They are what keeps a bomb from filling the disk.
struct LimitesExtraction
{
    uint64_t parEntree = uint64_t(4) << 30;
    std::optional<uint64_t> placeLibre; ///< instead of what the disk tells
    /// Asked before the first byte is written, with the number of bytes that the entries announce; may give up
    /// (ZipAbandon). What is beyond the bounds is refused without a question.
    std::function<bool(uint64_t)> accepter = {};
};

/// An entry whose name no file of the folder can have, or no entry of the next archive: it is too long or holds control
/// characters.
struct NomRemplace
{
    QString nom;     ///< without a folder
    QString fichier; ///< the name that it was extracted under
};

/// One archive for one operation. What is written has bare names: the archive is the picture of a folder.
class ccZip
{
public:
    ccZip();
    /// Finishes what AddFile began (see Fermer) and releases the archive.
    ~ccZip();
    ccZip(const ccZip&) = delete;
    ccZip& operator=(const ccZip&) = delete;

    QStringList Col;                 ///< names of the archive's entries: listed by Init, then those that AddFile took
    QString Comm;                    ///< the archive comment; read by Init, written when it is not empty
    int Level = NiveauDesCatalogues; ///< deflate level, its first digit counts; 0 stores
    LimitesExtraction Limites;       ///< for Decompress
    /// The archive that Decompress has read or Fermer has written; null where it cannot be known again.
    std::shared_ptr<ArchiveConnue> Connue;
    QList<NomRemplace> Remplaces; ///< by the last Decompress; a warning

    int count() const { return static_cast<int>(Col.size()); }
    const QString& Name() const { return m_nom; }

    /// Binds the object to an archive and lists it. A file that does not exist or is no archive leaves Col empty.
    void Init(const QString& chemin);
    /// Takes a file for the archive, in the place of an entry that has its name. `recurse`: also a folder, with what
    /// it holds, links to folders excepted; `junk`: without folder names. 0: taken; 1: nothing to take, such as a
    /// folder without `recurse`; 2 or more: not to be read. The bytes are read and written by Fermer.
    int AddFile(const QString& fichier, int recurse, bool junk);
    /// The place where Fermer makes a new archive, held by the caller, who keeps it until then.
    void Occuper(PlaceDuFichier& place) { m_place = &place; }
    /// Where Fermer finds files that did not change compressed already.
    void Reprendre(Origine origine) { m_origine = std::move(origine); }
    /// Writes what AddFile took, and lists it again. A new archive is written where it stands, and goes again when that
    /// fails; one that is there is added to beside its place: on 2 or more nothing has changed on the disk. 0 when all
    /// was written, or nothing was taken. Events run meanwhile, those of the user excepted.
    int Fermer();
    /// The name at a 1-based index of Col; empty outside.
    QString GetFile(int index) const;
    /// Extracts the entries that match `masque` (* and ?; all when it is empty) into the folder `cible`, without
    /// folders of their own, over files that are there. 0 done; 1 something was passed over, or `cible` is empty; 2 or
    /// more a failure: what was extracted is removed again.
    int Decompress(const QString& cible, const QString& masque);
    /// What was said during the last operation: the comment, what was passed over, what failed and why.
    QString GetZipInfo() const { return m_infos; }

private:
    struct Prive;
    std::unique_ptr<Prive> m_prive;
    Origine m_origine;
    PlaceDuFichier* m_place = nullptr;
    QString m_nom;
    QString m_infos;
};
