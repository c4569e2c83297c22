#include "catalogue/documents/Commentaires.h"

#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/texte/TexteExact.h"
#include "platform/PageDeCode.h"
#include "platform/Presence.h"

#include <QFile>

namespace Commentaires {

namespace {

const QString s_finDeLigne = QStringLiteral("\r\n");

/// The bytes that "Zelvane.utf8" is to hold once the comments are `texte`; empty when the folder needs no such file.
/// Nothing when what stands there cannot be read.
std::optional<QByteArray> TexteExactAvec(const QString& dossier, const QString& texte)
{
    const QString chemin = dossier + TexteExact::NomDuFichier();
    const bool enHuitBits = PageDeCode::EstRepresentable(texte);
    if (enHuitBits && !PeutExister(chemin))
        return QByteArray();
    const std::optional<QByteArray> huitBits = LireSIlExiste(dossier + QStringLiteral("Zelvane.qrt"));
    const TexteExact::Contenu contenu = TexteExact::Lire(dossier, huitBits.value_or(QByteArray()), {});
    if (!huitBits || contenu.illisible)
        return std::nullopt;
    const QByteArray enUtf8 = PageDeCode::VersTexte(*huitBits).toUtf8();
    const QByteArray catalogue = contenu.catalogue.value_or(enUtf8);
    if (enHuitBits)
        return catalogue == enUtf8 ? QByteArray() : catalogue;
    return catalogue + TexteExact::Separateur() + texte.toUtf8();
}

bool Supprimer(const QString& chemin)
{
    return !PeutExister(chemin) || SupprimerDuDossier(chemin);
}

} // namespace

QString NomDuFichier()
{
    return QStringLiteral("Zelvane.txt");
}

std::optional<QString> Lire(const QString& dossier)
{
    std::optional<QString> texte = TexteExact::LireCommentaire(dossier);
    if (texte)
        texte->replace(s_finDeLigne, QStringLiteral("\n")).replace(u'\r', u'\n');
    return texte;
}

bool Ecrire(const QString& dossier, const QString& texte)
{
    QString lignes = texte.isEmpty() ? QStringLiteral("\n") : texte;
    lignes.replace(u'\n', s_finDeLigne);

    // Both are written whole before either takes its place: a full disk leaves the old comments.
    const std::optional<QByteArray> exact = TexteExactAvec(dossier, lignes);
    if (!exact)
        return false;
    const QString cheminExact = dossier + TexteExact::NomDuFichier();
    FichierDuDossier fichierExact(cheminExact);
    FichierDuDossier fichier(dossier + NomDuFichier());
    if (!fichier.Preparer(PageDeCode::VersOctets(lignes)) || (!exact->isEmpty() && !fichierExact.Preparer(*exact)))
        return false;
    return fichier.Valider() && (exact->isEmpty() ? Supprimer(cheminExact) : fichierExact.Valider());
}

bool AMontrer(const QString& dossier)
{
    QFile fichier(dossier + NomDuFichier());
    // One byte more than a line end tells a longer text apart.
    return fichier.open(QIODevice::ReadOnly) && fichier.read(3) != "\r\n";
}

} // namespace Commentaires
