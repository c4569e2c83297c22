// What the files of ccZip share; for them alone.
#pragma once

#include "catalogue/ccZip.h"

#include <QByteArray>
#include <QString>

#include <zip.h>

#include <memory>
#include <vector>

namespace zipinterne {

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

struct ArchiveOuverte
{
    Archive archive; ///< null when it could not be opened
    ResultatZip resultat = ZipIntrouvable;
};
/// Opens an archive for reading.
ArchiveOuverte OuvrirArchive(const QString& chemin);

/// An entry's name: UTF-8 where marked so, else code page 437; cut at a zero byte.
struct NomLu
{
    QString nom;
    bool coupe = false; ///< there was a zero byte
};
/// The names of all entries, by index.
std::vector<NomLu> LireNoms(zip_t* archive, const QString& chemin);
/// The archive comment, in the code page.
QString LireCommentaire(zip_t* archive);

/// The part of a name behind its last "/" or "\".
QString NomNu(const QString& nom);
/// Whether the whole name matches a mask of literal characters, * and ?.
bool CorrespondAuMasque(QStringView nom, QStringView masque);

/// Extracts; see ccZip::Decompress. What there is to say is added to `infos`.
ResultatZip Extraire(zip_t* archive, const std::vector<NomLu>& noms, const QString& cible, const QString& masque,
                     const LimitesExtraction& limites, QString& infos);

/// A file that fits into memory as a source of deflated bytes; null when it cannot be had. Where libdeflate is.
zip_source_t* CreerSourceDeflate(zip_t* archive, const QString& chemin, int niveau);

/// A file (or, when the name ends in "/", a folder) that goes into an archive.
struct Ajout
{
    QString fichier;
    QByteArray nom; ///< in the archive, UTF-8
};
/// Adds files to an archive, a new one if there is none; see ccZip::Fermer.
ResultatZip Ecrire(const QString& chemin, const std::vector<Ajout>& ajouts, const QString& commentaire, int niveau,
                   QString& infos);

} // namespace zipinterne
