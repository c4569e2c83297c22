// Catalogue archives: one object lists an archive, adds files to it, or extracts it.
#pragma once

#include "catalogue/QrtClass.h"

#include <QString>
#include <QStringList>

#include <memory>

/// One archive for one operation. Names in the archive are bare: they hold no folder.
class ccZip
{
public:
    ccZip();
    /// Finishes what AddFile began (see Fermer) and releases the archive.
    ~ccZip();
    ccZip(const ccZip&) = delete;
    ccZip& operator=(const ccZip&) = delete;

    QStringList Col; ///< names of the archive's entries, as listed by Init
    QString Comm;    ///< the archive comment; read by Init, written by AddFile
    int Level = 5;   ///< deflate level, 1 to 9

    int count() const { return static_cast<int>(Col.size()); }
    const QString& Name() const { return m_nom; }

    /// Binds the object to an archive and lists it. A file that does not exist or is no archive leaves Col empty.
    void Init(const QString& chemin);
    /// Adds one file under its bare name. `recurse`: a folder with what it holds; `junk`: without folder names.
    /// Result 0: taken; 2 or more: not. The bytes are written by Fermer.
    int AddFile(const QString& fichier, int recurse, bool junk);
    /// Writes what was added; every byte is checked and the archive listed again. 0: done; 2 or more: not.
    int Fermer();
    /// The name at a 1-based index of Col; empty outside.
    QString GetFile(int index) const;
    /// Extracts into `cible`; 0 done, 1 a warning (also for an empty `cible`), 2 or more a failure. `masque` takes
    /// the names that match (* and ?), all when it is empty.
    int Decompress(const QString& cible, const QString& masque);
    /// What was said during the last operation.
    QString GetZipInfo() const { return m_infos; }

private:
    struct Prive;
    std::unique_ptr<Prive> m_prive;
    QString m_nom;
    QString m_infos;
};

/// Extracts CheminReel into TmpFolder, asking for a password where one is needed. Shows "msg51" or "msg52", clears the
/// table and returns false when that fails.
bool ExtraireArchive(QrtClass& doc);
