// What the files of ccZip share; for them alone.
#pragma once

#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/archive/ccZipReprise.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>
#include <zip.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class PlaceDuFichier;

namespace zipinterne {

class Relais;
class SourceArchive;

struct Liberer
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
/// An open archive; changes that were not committed are dropped with it.
using Archive = std::unique_ptr<zip_t, Liberer>;

/// The result that stands for a library error while reading.
ResultatZip ResultatLecture(const zip_error_t& erreur);
/// The library's own words for an error.
QString Texte(zip_error_t& erreur);
/// A line of what was said: about what, and what.
QString Ligne(const QString& sujet, const QString& texte);

struct ArchiveLue
{
    Archive archive;                       ///< null when it could not be opened
    const SourceArchive* source = nullptr; ///< what it reads from; the library's
};
ArchiveLue LireDepuis(std::unique_ptr<SourceArchive> source);

/// What the library refuses in an archive's directory, and would take the whole archive down for.
struct NomsRefuses
{
    std::vector<uint64_t> entrees;   ///< by index: the name or the comment is not the UTF-8 text that it is marked as
    std::vector<Retouche> retouches; ///< take the mark away
};
/// Empty too for what is no archive.
NomsRefuses ChercherNomsRefuses(const QString& chemin);

struct ArchiveOuverte
{
    Archive archive; ///< null when it could not be opened
    ResultatZip resultat = ZipIntrouvable;
    NomsRefuses refuses = {};
};
/// Opens an archive for reading.
ArchiveOuverte OuvrirArchive(const QString& chemin);

/// An entry's name: UTF-8 where marked so (the catalogues' code page where that is not true), else code page 437; cut
/// at a zero byte.
struct NomLu
{
    QString nom;
    bool coupe = false; ///< there was a zero byte
};
/// The names of all entries, by index.
std::vector<NomLu> LireNoms(zip_t* archive, const QString& chemin, const NomsRefuses& refuses);
/// The archive comment, in the code page.
QString LireCommentaire(zip_t* archive);

/// Whether an entry that is written can have the name: the library refuses control characters, those of a text apart.
/// And what stands before a "\" is a folder to whoever extracts: the file would come back under another name, maybe
/// that of another one.
bool EstNomPossible(const QString& nom);
/// The part of a name behind its last "/" or "\".
QString NomNu(const QString& nom);
/// Whether the whole name matches a mask of literal characters, * and ?.
bool CorrespondAuMasque(QStringView nom, QStringView masque);

struct Extrait
{
    ResultatZip resultat = ZipFait;
    QHash<QByteArray, ArchiveConnue::Fichier> fichiers; ///< those that can be known again
    QList<NomRemplace> remplaces;
};
/// Extracts; see ccZip::Decompress. What there is to say is added to `infos`.
Extrait Extraire(zip_t* archive, const std::vector<NomLu>& noms, const QString& cible, const QString& masque,
                 const LimitesExtraction& limites, QString& infos);

/// A file that is to come back from an archive.
struct Voulu
{
    uint64_t index;     ///< of its entry
    QByteArray fichier; ///< its name in the folder
    EtatFichier etat;   ///< as it was; all zero where that is not known
};
/// Extracts these, as far as that goes; encrypted ones never. Returns what is there again.
QHash<QByteArray, ArchiveConnue::Fichier> ExtraireVoulus(zip_t* archive, const std::vector<Voulu>& voulus,
                                                         const QString& cible);

/// A file (or, when the name ends in "/", a folder) that goes into an archive.
struct Ajout
{
    QString fichier;
    QByteArray nom;                                 ///< in the archive, UTF-8
    std::optional<EtatFichier> etat = std::nullopt; ///< of the file whose bytes went in, if it stood still
    bool sur = false;                               ///< and a later write would show in it
};

/// A file as a source of its bytes; null when it cannot be had. The library keeps the reference while it writes.
zip_source_t* CreerSourceFichier(zip_t* archive, Ajout& ajout, const struct stat& fichier);
/// The same of deflated bytes, for a file that fits into memory. Where libdeflate is.
zip_source_t* CreerSourceDeflate(zip_t* archive, Ajout& ajout, const struct stat& fichier, int niveau);

/// Archives that were taken over from are closed by a thread, as it takes long to let go of a deleted one. This waits
/// until the disk has their room back. To be called by the thread that saves.
void AttendreFermetures();

struct FormeArchive
{
    QString commentaire;
    int niveau = NiveauDesCatalogues; ///< deflate level; 0 stores
    PlaceDuFichier* place = nullptr;  ///< of a new archive, held by the caller; may be null
};

struct Ecrit
{
    ResultatZip resultat = ZipFait;
    std::shared_ptr<ArchiveConnue> connue; ///< the new archive, where it can be known again
};
/// Adds files to an archive, a new one if there is none; see ccZip::Fermer. Takes compressed bytes over from `origine`,
/// which may be null.
Ecrit Ecrire(const QString& chemin, std::vector<Ajout> ajouts, const FormeArchive& forme, Origine origine,
             QString& infos);

} // namespace zipinterne

class OrigineZip
{
public:
    OrigineZip(std::shared_ptr<const ArchiveConnue> connue, zipinterne::Descripteur fichier,
               zipinterne::Archive archive, const zipinterne::SourceArchive& lue)
        : m_connue(std::move(connue)), m_fichier(std::move(fichier)), m_archive(std::move(archive)), m_lue(lue)
    {
    }

    ~OrigineZip();
    OrigineZip(const OrigineZip&) = delete;
    OrigineZip& operator=(const OrigineZip&) = delete;

    /// The bytes of an unchanged file, deflated at this level, as they lie there; null when there are no such. They go
    /// over `relais`.
    zip_source_t* Source(zip_t* archive, zipinterne::Ajout& ajout, const struct stat& fichier, int niveau,
                         zipinterne::Relais& relais) const;
    /// The archive, for reading.
    zip_t* Lue() const { return m_archive.get(); }
    /// Of the archive, in bytes.
    uint64_t Taille() const { return m_connue->etat.taille; }
    /// Whether nobody has written to the archive since it was known.
    bool EstIntacte() const;

private:
    std::shared_ptr<const ArchiveConnue> m_connue;
    zipinterne::Descripteur m_fichier;
    zipinterne::Archive m_archive;
    const zipinterne::SourceArchive& m_lue; ///< what m_archive reads from
};
