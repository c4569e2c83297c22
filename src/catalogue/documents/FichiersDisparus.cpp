#include "catalogue/documents/FichiersDisparus.h"

#include "base/ActesDuDossier.h"
#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/NomsDuDossier.h"
#include "catalogue/archive/ccZipReprise.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/texte/Categorie.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Actes = QHash<QByteArray, ActeSurFichier>;

/// What was there, by the archive or by the program's own doing, and is gone without the user's will. Nothing where the
/// folder cannot be listed: nothing is known to be gone, and the save that follows refuses to go on.
QList<QByteArray> Disparus(const Categorie& doc, const Actes& actes)
{
    const std::optional<QStringList> noms = NomsDuDossier(doc.TmpFolder);
    if (!noms)
        return {};
    QSet<QByteArray> presents;
    for (const QString& nom : *noms)
        presents.insert(OctetsDuChemin(nom));
    QList<QByteArray> disparus;
    if (doc.Archive) {
        for (auto fichier = doc.Archive->fichiers.keyBegin(); fichier != doc.Archive->fichiers.keyEnd(); ++fichier) {
            if (!presents.contains(*fichier) && !actes.contains(*fichier))
                disparus.append(*fichier);
        }
    }
    for (auto acte = actes.cbegin(); acte != actes.cend(); ++acte) {
        const bool present = presents.contains(acte.key());
        if (!present && !acte->supprime)
            disparus.append(acte.key());
        if (present && acte->supprime)
            OublierActe(doc.TmpFolder, acte.key()); // somebody has put it back
    }
    std::ranges::sort(disparus);
    return disparus;
}

/// Whether the archive has the file as it was last, and not one that it has replaced since.
bool EstLeDernier(const ArchiveConnue& archive, const QByteArray& nom, const Actes& actes)
{
    const auto acte = actes.constFind(nom);
    if (acte == actes.cend())
        return true;
    const EtatFichier etat = archive.fichiers.value(nom).etat;
    return acte->ecrit == TraceDeFichier{etat.peripherique, etat.inode, etat.taille, etat.modifie};
}

/// Those that a category is not whole without: pictures of entries, comments, what the program keeps for printing.
QList<QByteArray> Attendus(const Categorie& doc, const QList<QByteArray>& noms)
{
    QSet<QByteArray> attendus{OctetsDuChemin(Commentaires::NomDuFichier()), "print.ini", "print.image"};
    if (!noms.isEmpty()) {
        for (int i = 1; i <= doc.ItemsCount(); ++i) {
            const stockage::Cellule image = doc.MyLV->StockageDe(i).Image();
            if (image.taille > 0)
                attendus.insert(OctetsDuChemin(image.Texte()));
        }
    }
    QList<QByteArray> trouves;
    std::ranges::copy_if(noms, std::back_inserter(trouves),
                         [&attendus](const QByteArray& nom) { return attendus.contains(nom); });
    return trouves;
}

bool EnregistrerSans(const Categorie& doc, const QList<QByteArray>& perdus)
{
    constexpr qsizetype auPlus = 10;
    const Message question =
        LangMsg(
            u"msgDisparus"_s,
            u"Des fichiers de cette catégorie ont disparu du dossier temporaire et ne peuvent pas être repris (%1). Voulez-vous enregistrer sans eux?"_s)
            .Remplacer(u"%1"_s, QString::number(perdus.size()));
    QString liste;
    for (const QByteArray& nom : perdus.first(qMin(auPlus, perdus.size())))
        liste += u'\n' + CheminDesOctets(nom);
    if (perdus.size() > auPlus)
        liste += u"\n…"_s;
    return AfficherMsg(question + liste, MsgOuiNon, doc.filename()) == RepOui;
}

/// Brings back what the archive has as it was last. Returns what it could not.
QList<QByteArray> Rapporter(Categorie& doc, const QList<QByteArray>& disparus, const Actes& actes)
{
    QList<QByteArray> reste, bons;
    for (const QByteArray& nom : disparus) {
        const bool bon = doc.Archive && doc.Archive->fichiers.contains(nom) && EstLeDernier(*doc.Archive, nom, actes);
        (bon ? bons : reste).append(nom);
    }
    const QSet<QByteArray> rapportes = RapporterFichiers(doc.Archive, bons, doc.TmpFolder);
    for (const QByteArray& nom : std::as_const(bons)) {
        if (rapportes.contains(nom))
            OublierActe(doc.TmpFolder, nom);
        else
            reste.append(nom);
    }
    return reste;
}

/// Those of which the archive has at least an older one. The text is none of them: it is written anew, and until then
/// an older one would make a rescue copy look outdated.
QList<QByteArray> PlusAnciens(const Categorie& doc, const QList<QByteArray>& noms)
{
    QList<QByteArray> anciens;
    std::ranges::copy_if(noms, std::back_inserter(anciens), [&doc](const QByteArray& nom) {
        return doc.Archive && doc.Archive->fichiers.contains(nom) && nom != "Zelvane.qrt";
    });
    return anciens;
}

} // namespace

bool RetablirDisparus(Categorie& doc)
{
    if (doc.ColCount() == 0 || doc.TmpFolder.isEmpty())
        return true;
    const Actes actes = ActesDuDossier(doc.TmpFolder);
    doc.TmpFolder = AjouterSlash(RetablirDossierTemp(doc.TmpFolder));
    const QList<QByteArray> disparus = Disparus(doc, actes);
    if (disparus.isEmpty())
        return true;
    const QList<QByteArray> reste = Rapporter(doc, disparus, actes);
    const QList<QByteArray> perdus = Attendus(doc, reste);
    if (!perdus.isEmpty() && !EnregistrerSans(doc, perdus))
        return false;
    RapporterFichiers(doc.Archive, PlusAnciens(doc, reste), doc.TmpFolder);
    for (const QByteArray& nom : reste)
        OublierActe(doc.TmpFolder, nom);
    return true;
}
