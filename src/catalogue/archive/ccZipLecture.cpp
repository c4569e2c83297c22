// Opening an archive, and what the library says of errors.
#include "catalogue/archive/ccZipInterne.h"
#include "catalogue/archive/ccZipSourceArchive.h"

#include "platform/NomsSysteme.h"
#include "platform/PageDeCode.h"

#include <QFile>

#include <fcntl.h>

namespace zipinterne {

namespace {

constexpr QByteArrayView EnTeteLocal("PK\3\4");

/// An archive cut at its end has lost its directory; its beginning still shows what it was.
bool CommenceCommeUneArchive(const QString& chemin)
{
    QFile fichier;
    return OuvrirParChemin(fichier, chemin, QIODevice::ReadOnly) && fichier.read(EnTeteLocal.size()) == EnTeteLocal;
}

/// Opens an archive that the library refuses for its names alone.
ArchiveOuverte OuvrirRetouchee(const QString& chemin)
{
    NomsRefuses refuses = ChercherNomsRefuses(chemin);
    if (refuses.entrees.empty())
        return {};
    Descripteur fichier(open(OctetsDuChemin(chemin).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const std::optional<EtatFichier> etat = fichier ? EtatDe(fichier.Numero()) : std::nullopt;
    if (!etat)
        return {};
    auto source = std::make_unique<SourceArchive>(fichier.Numero(), etat->taille, refuses.retouches);
    source->Prendre(std::move(fichier));
    return {LireDepuis(std::move(source)).archive, ZipFait, std::move(refuses)};
}

} // namespace

ArchiveLue LireDepuis(std::unique_ptr<SourceArchive> source)
{
    zip_source_t* lue = zip_source_function_create(SourceArchive::Commande, source.get(), nullptr);
    if (!lue)
        return {};
    const SourceArchive* objet = source.release(); // the library frees it
    Archive archive(zip_open_from_source(lue, ZIP_RDONLY, nullptr));
    if (!archive)
        zip_source_free(lue);
    return {std::move(archive), objet};
}

ResultatZip ResultatLecture(const zip_error_t& erreur)
{
    switch (zip_error_code_zip(&erreur)) {
    case ZIP_ER_CRC:
    case ZIP_ER_ZLIB:
    case ZIP_ER_COMPRESSED_DATA:
        return ZipDonnees;
    case ZIP_ER_MEMORY:
        return ZipMemoire;
    case ZIP_ER_NOENT:
        return ZipIntrouvable;
    case ZIP_ER_EOF:
        return ZipTronque;
    case ZIP_ER_COMPNOTSUPP:
    case ZIP_ER_ENCRNOTSUPP:
        return ZipMethode;
    case ZIP_ER_NOPASSWD:
    case ZIP_ER_WRONGPASSWD:
        return ZipMotDePasse;
    default:
        return ZipFormat;
    }
}

QString Ligne(const QString& sujet, const QString& texte)
{
    return QStringLiteral("%1: %2\n").arg(sujet, texte);
}

QString Texte(zip_error_t& erreur)
{
    return QString::fromUtf8(zip_error_strerror(&erreur));
}

ArchiveOuverte OuvrirArchive(const QString& chemin)
{
    if (!EstFichier(chemin))
        return {nullptr, ZipIntrouvable};
    int code = 0;
    Archive archive(zip_open(OctetsDuChemin(chemin).constData(), ZIP_RDONLY, &code));
    if (archive)
        return {std::move(archive), ZipFait};
    if (code == ZIP_ER_INCONS) {
        if (ArchiveOuverte retouchee = OuvrirRetouchee(chemin); retouchee.archive)
            return retouchee;
    }
    if (code == ZIP_ER_NOZIP && CommenceCommeUneArchive(chemin))
        return {nullptr, ZipTronque};
    zip_error_t erreur;
    zip_error_init_with_code(&erreur, code);
    const ResultatZip resultat = ResultatLecture(erreur);
    zip_error_fini(&erreur);
    return {nullptr, resultat};
}

QString LireCommentaire(zip_t* archive)
{
    int taille = 0;
    const char* octets = zip_get_archive_comment(archive, &taille, ZIP_FL_ENC_RAW);
    if (!octets)
        return QString();
    return PageDeCode::VersTexte(QByteArrayView(octets, static_cast<qsizetype>(qstrnlen(octets, size_t(taille)))));
}

} // namespace zipinterne
