// One category in memory: its table, its document object and its private folder, which come and go together.
#pragma once

#include "base/TraceDeFichier.h"
#include "catalogue/texte/QrtClass.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

struct ArchiveConnue;

/// How a write of the archive ended.
enum class IssueEcriture {
    RienTouche, ///< the file stands as it did before
    Entiere,    ///< the file holds the whole category
    Incomplete, ///< the old file is gone and the new one is not whole: the folder is the only place of the data
};

/// The owner of what a QrtClass shows to scripts and plug-ins. A window has one, and so has a command of zelvane-cli.
class Categorie : public QrtClass
{
public:
    Categorie();
    /// The folder goes too, unless it is to be kept or holds what is not in the file: unsaved changes, or an archive
    /// that has not reached the disk.
    ~Categorie();
    Categorie(const Categorie&) = delete;
    Categorie& operator=(const Categorie&) = delete;

    /// The table that MyLV points to.
    ::MyLV Table;

    /// Makes the private folder, TmpFolder, which belongs to this object from here on.
    void CreerDossier();
    /// The folder stays for the next start when the document goes. A later write that is whole takes that back.
    void GarderDossier() { m_garder = true; }
    bool GardeDossier() const { return m_garder; }
    /// A command's result takes the place of IlFautSauver. Changes that it makes nobody ask about any more are not
    /// lost: the rescue copy goes on to hold them, and the folder stays with it when the document goes.
    void EcraserIlFautSauver(bool resultat);
    /// There are such changes.
    Drapeau ChangementsTus;
    /// There is something in the table that is not in the file, be it that IlFautSauver says so or not.
    bool AChange() const { return IlFautSauver || ChangementsTus; }
    /// Its window would close without a question, although there is.
    bool SeTait() const { return ChangementsTus && !IlFautSauver; }
    /// Deletes the folder with all that it holds and empties TmpFolder, unless the folder is to be kept.
    void FermerDossier();

    /// Of a recovered document: the file that it came from, which Save As proposes until it has one of its own.
    QString CheminAvantSecours;
    /// The path that the user knows the document by: its own, else the one above; empty for a category never saved.
    const QString& CheminConnu() const { return CheminReel().isEmpty() ? CheminAvantSecours : CheminReel(); }

    /// The file at CheminConnu as it was when it was read, written or chosen by the user, whichever was last; one that
    /// was not there is none. Nothing while it was none of these.
    std::optional<TraceDeFichier> FichierVu;
    /// Takes the file at CheminReel, as it stands now, for the one that the next save may replace without a question.
    void RegarderFichier();
    /// Whether another file than that stands at `chemin`, which names it, or the same one that was changed since.
    bool FichierEstUnAutre(const QString& chemin) const;

    /// Writes the text into TmpFolder and rebuilds the archive at CheminReel from the whole folder. Nothing is touched
    /// when there are no columns; also, with the old archive left alone, when the text could not be written or the old
    /// archive not be deleted. Files that did not change are not compressed again. Events run meanwhile, those of the
    /// user excepted. An incomplete archive has the folder kept: whoever calls tells the user (MsgArchiveIncomplete).
    /// `selection` writes the selected entries alone, without images.
    IssueEcriture Ecrire(bool selection);

    /// Called when the whole category has come into its file by a command of the user.
    std::function<void()> AEteEnregistree;

    /// Has every byte of the file that was written on the disk; before that the folder must not go. False, with the
    /// folder kept, when the disk refuses.
    bool Forcer();

    /// The archive is being made from the folder right now: until it is whole, nothing of the folder may go.
    bool EnEcriture = false;
    /// The archive that the folder was last read from or written to, where a save may find unchanged files compressed;
    /// null when there is none such.
    std::shared_ptr<ArchiveConnue> Archive;
    /// Path of a file that was written and may not have reached the disk yet; empty for none.
    QString AForcer;

private:
    bool m_proprietaire = false; ///< the folder was made by this object
    bool m_garder = false;
};
