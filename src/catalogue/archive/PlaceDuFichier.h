// The place where a file is replaced, held against other programs that would replace it in the same moment.
#pragma once

#include "catalogue/archive/ccZipDescripteur.h"

#include <QString>

#include <sys/stat.h>

#include <optional>

/// The file that a path names in the end, through symbolic links, those that name nothing yet included. The path itself
/// when they go round.
QString CibleDesLiens(const QString& chemin);

/// The steps in their order: Prendre, SupprimerAncien, perhaps Reserver, Creer, then writing, then EstEnPlace. Who
/// saves the same file meanwhile, in this program or another one, is refused by its own Prendre, SupprimerAncien or
/// Creer; none of these removes a file that another one has written. Locks are the system's and end with the object or
/// the process; on file systems without any, the file that stands at the path is compared with the one that is meant
/// just before each step.
class PlaceDuFichier
{
public:
    /// `chemin`: no symbolic link (CibleDesLiens).
    explicit PlaceDuFichier(const QString& chemin);
    /// A file that was reserved and never asked for goes again.
    ~PlaceDuFichier();
    PlaceDuFichier(const PlaceDuFichier&) = delete;
    PlaceDuFichier& operator=(const PlaceDuFichier&) = delete;

    const QString& Chemin() const { return m_chemin; }

    /// Takes hold of the file that stands there, if there is one. False when another program is replacing it, or when
    /// the place cannot be looked at.
    bool Prendre();
    /// The file that was taken; nothing when none stood there.
    const std::optional<struct stat>& Ancien() const { return m_ancien; }
    /// Deletes the file that was taken. What is no file, such as a folder or a device, is never deleted, nor is one
    /// that has come since. True when the place is free.
    bool SupprimerAncien();

    /// Makes the new file before it is needed, so that the place is held all the time; Creer then gives that one. False
    /// as where Creer gives nothing.
    bool Reserver();
    /// Makes the new file, open for writing, with the rights and the owner of the one that was deleted as far as the
    /// process may set them. Nothing when a file is there, or none can be made: errno tells.
    std::optional<zipinterne::Descripteur> Creer();
    /// Whether the file at the path is the one that Creer made.
    bool EstEnPlace() const;
    /// Deletes what Creer made; another file at the path stays.
    void Retirer();

    /// Whether a file of somebody else's stands there where the new one should: it counts, and not ours.
    bool EstPerdue() const;

private:
    bool Saisir();

    QString m_chemin;
    QByteArray m_octets;                 ///< m_chemin as the system spells it
    zipinterne::Descripteur m_verrou;    ///< of the old file
    std::optional<struct stat> m_ancien; ///< of what stood there when it was taken
    std::optional<zipinterne::Descripteur> m_reserve;
    zipinterne::Descripteur m_neuf; ///< a second descriptor of the new file: it keeps its lock
    bool m_perdue = false;
};

/// Gives a new file the owner, the group and the rights of the one that it takes the place of, as far as the process
/// may; its owner may always write to it.
void TransmettreDroits(int neuf, const struct stat& ancien);
