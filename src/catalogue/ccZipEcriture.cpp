// Writing: a new archive is built beside the place where it will stand, read again, and put there by a rename.
#include "catalogue/ccZipInterne.h"

#include "platform/PageDeCode.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <unistd.h>

#include <cstdio>

namespace zipinterne {

namespace {

constexpr qsizetype PlusLongCommentaire = 4096;

ResultatZip ResultatEcriture(const zip_error_t& erreur)
{
    switch (zip_error_code_zip(&erreur)) {
    case ZIP_ER_TMPOPEN:
    case ZIP_ER_RENAME:
        return ZipCreation;
    case ZIP_ER_OPEN:
    case ZIP_ER_READ:
        return ZipLecture;
    case ZIP_ER_MEMORY:
        return ZipMemoire;
    default:
        return ZipEcriture;
    }
}

/// A file beside the archive that goes unless it takes the archive's place.
class FichierProvisoire
{
public:
    explicit FichierProvisoire(const QString& definitif) : m_definitif(definitif)
    {
        const QString hasard = QString::number(QRandomGenerator::system()->generate64(), 36);
        m_chemin = QFileInfo(definitif).absolutePath() + QStringLiteral("/.zelvane-") + hasard;
    }
    ~FichierProvisoire() { QFile::remove(m_chemin); }
    FichierProvisoire(const FichierProvisoire&) = delete;
    FichierProvisoire& operator=(const FichierProvisoire&) = delete;

    const QString& Chemin() const { return m_chemin; }
    /// Has every byte on the disk first: the folder that they came from may be deleted next.
    ResultatZip Deposer() const
    {
        QFile fichier(m_chemin);
        if (!fichier.open(QIODevice::ReadOnly) || fsync(fichier.handle()) != 0)
            return ZipEcriture;
        const QByteArray de = QFile::encodeName(m_chemin);
        return std::rename(de.constData(), QFile::encodeName(m_definitif).constData()) == 0 ? ZipFait : ZipCreation;
    }

private:
    QString m_definitif;
    QString m_chemin;
};

/// What the directory of the finished archive must say.
struct Attendu
{
    QByteArray nom;
    uint64_t taille;
    friend bool operator==(const Attendu&, const Attendu&) = default;
};

std::vector<Attendu> Inventaire(zip_t* archive)
{
    std::vector<Attendu> inventaire;
    const auto nombre = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
    inventaire.reserve(nombre);
    for (zip_uint64_t i = 0; i < nombre; ++i) {
        zip_stat_t etat;
        if (zip_stat_index(archive, i, 0, &etat) == 0)
            inventaire.push_back({zip_get_name(archive, i, 0), etat.size});
    }
    return inventaire;
}

/// Where the bytes of an entry come from; null when they cannot be had.
struct Origine
{
    zip_source_t* source;
    int methode; ///< what the library is to do with them
};

Origine OrigineDe(zip_t* archive, const Ajout& ajout, int niveau)
{
    constexpr qint64 vautLaPeine = qint64(64) << 10;
    constexpr qint64 tientEnMemoire = qint64(512) << 20;
    const qint64 taille = QFileInfo(ajout.fichier).size();
    if constexpr (ZELVANE_LIBDEFLATE) {
        if (niveau > 0 && taille >= vautLaPeine && taille <= tientEnMemoire)
            return {CreerSourceDeflate(archive, ajout.fichier, niveau), ZIP_CM_DEFAULT};
    }
    // Deflate is named on purpose: the library's default method forgets the level.
    return {zip_source_file(archive, QFile::encodeName(ajout.fichier).constData(), 0, 0),
            niveau > 0 && taille > 0 ? ZIP_CM_DEFLATE : ZIP_CM_STORE};
}

/// Hands one file to the archive.
ResultatZip Poser(zip_t* archive, const Ajout& ajout, int niveau)
{
    const char* nom = ajout.nom.constData();
    // The library cannot replace an entry by one of the same method: it forgets the new level.
    const zip_int64_t ancienne = zip_name_locate(archive, nom, ZIP_FL_ENC_UTF_8);
    if (ancienne >= 0)
        zip_delete(archive, static_cast<zip_uint64_t>(ancienne));
    if (ajout.nom.endsWith('/'))
        return zip_dir_add(archive, nom, ZIP_FL_ENC_UTF_8) >= 0 ? ZipFait : ZipEcriture;

    const auto [source, methode] = OrigineDe(archive, ajout, niveau);
    if (!source)
        return ZipLecture;
    const zip_int64_t index = zip_file_add(archive, nom, source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return ZipEcriture;
    }
    const bool accepte = zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), methode,
                                                  static_cast<zip_uint32_t>(niveau)) == 0;
    return accepte ? ZipFait : ZipEcriture;
}

QByteArray OctetsDuCommentaire(const QString& commentaire)
{
    const qsizetype zero = commentaire.indexOf(QChar(0));
    return PageDeCode::VersOctets(commentaire.left(zero < 0 ? commentaire.size() : zero)).left(PlusLongCommentaire);
}

/// The library writes no comment but ASCII and UTF-8, so one in the code page goes in behind it: the comment is the end
/// of the file.
bool PoserCommentaire(const QString& chemin, const QByteArray& octets)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadWrite) && fichier.seek(fichier.size() - octets.size()) &&
           fichier.write(octets) == octets.size() && fichier.flush();
}

/// Lists the archive as it lies on the disk. Sums were taken of the bytes as they were read, and every write was
/// checked: reading all of it again would take half as long as writing and find only a broken disk.
bool EstComplet(const QString& chemin, const std::vector<Attendu>& attendus, const QByteArray& commentaire)
{
    const ArchiveOuverte ecrite = OuvrirArchive(chemin);
    return ecrite.archive && Inventaire(ecrite.archive.get()) == attendus &&
           (commentaire.isEmpty() || LireCommentaire(ecrite.archive.get()) == PageDeCode::VersTexte(commentaire));
}

ResultatZip Construire(const QString& chemin, const std::vector<Ajout>& ajouts, const QByteArray& commentaire,
                       int niveau, QString& infos)
{
    Archive archive(zip_open(QFile::encodeName(chemin).constData(), ZIP_CREATE, nullptr));
    if (!archive)
        return QFile::exists(chemin) ? ZipFormat : ZipCreation;
    for (const Ajout& ajout : ajouts) {
        const ResultatZip pose = Poser(archive.get(), ajout, niveau);
        if (pose != ZipFait) {
            infos += Ligne(ajout.fichier, Texte(*zip_get_error(archive.get())));
            return pose;
        }
    }
    const auto longueur = static_cast<zip_uint16_t>(commentaire.size());
    const bool ascii =
        commentaire.isEmpty() || zip_set_archive_comment(archive.get(), commentaire.constData(), longueur) == 0;
    if (!ascii)
        zip_set_archive_comment(archive.get(), QByteArray(longueur, '?').constData(), longueur);

    const std::vector<Attendu> attendus = Inventaire(archive.get());
    if (zip_close(archive.get()) != 0) {
        infos += Ligne(chemin, Texte(*zip_get_error(archive.get())));
        return ResultatEcriture(*zip_get_error(archive.get()));
    }
    static_cast<void>(archive.release()); // closed
    const bool complet = (ascii || PoserCommentaire(chemin, commentaire)) && EstComplet(chemin, attendus, commentaire);
    return complet ? ZipFait : ZipEcriture;
}

} // namespace

ResultatZip Ecrire(const QString& chemin, const std::vector<Ajout>& ajouts, const QString& commentaire, int niveau,
                   QString& infos)
{
    const FichierProvisoire provisoire(chemin);
    if (QFile::exists(chemin) && !QFile::copy(chemin, provisoire.Chemin()))
        return ZipCreation;
    const ResultatZip resultat =
        Construire(provisoire.Chemin(), ajouts, OctetsDuCommentaire(commentaire), niveau, infos);
    return resultat == ZipFait ? provisoire.Deposer() : resultat;
}

} // namespace zipinterne
