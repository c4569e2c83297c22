#include "catalogue/texte/EcritureQrt.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/Evenements.h"
#include "base/NomsDuDossier.h"
#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/archive/FichierProvisoire.h"
#include "catalogue/archive/PlaceDuFichier.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/PuitsAppareil.h"
#include "catalogue/texte/TexteExact.h"
#include "catalogue/texte/TexteQrt.h"
#include "extensions/langue/modLang.h"
#include "kit/ManqueDeMemoire.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"
#include "platform/Retenue.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <cerrno>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using stockage::Codage;

namespace {

constexpr QIODevice::OpenMode s_aEcrire = QIODevice::WriteOnly | QIODevice::Unbuffered;

EntreesEcrites Entrees(bool selection)
{
    return selection ? EntreesEcrites::Selection : EntreesEcrites::Toutes;
}

/// Writes the exact text without putting it in its place. `commentaire`: the comment's exact text, where it needs one.
bool PreparerTexteExact(const QrtClass& doc, EntreesEcrites entrees, const std::optional<QByteArray>& commentaire,
                        FichierDuDossier& fichier)
{
    if (!fichier.Ouvrir())
        return false;
    PuitsAppareil puits(fichier.Fichier());
    if (!EcrireTexteQrt(doc, "2", entrees, Codage::Utf8, puits))
        return false;
    const QByteArray suite = commentaire ? TexteExact::Separateur() + *commentaire : QByteArray();
    return puits.Recevoir(suite.constData(), static_cast<size_t>(suite.size()));
}

/// Puts back what stood there; without bytes there was nothing.
void Remettre(const QString& chemin, const QByteArray& octets)
{
    FichierDuDossier fichier(chemin);
    if (octets.isEmpty())
        QFile::remove(chemin);
    else if (fichier.Preparer(octets))
        fichier.Valider();
}

/// The text files of the folder, all or none: a reader that comes in between finds the old text whole.
bool EcrireTextes(const QrtClass& doc, EntreesEcrites entrees)
{
    const QString chemin = doc.TmpFolder + QStringLiteral("Zelvane.qrt");
    const QString cheminExact = doc.TmpFolder + TexteExact::NomDuFichier();
    // The exact comment is known by the text that stands there now: it is read before that goes.
    TexteExact::Contenu avant;
    if (PeutExister(cheminExact)) {
        const std::optional<QByteArray> texte = LireSIlExiste(chemin);
        const std::optional<QByteArray> commentaire = LireSIlExiste(doc.TmpFolder + QStringLiteral("Zelvane.txt"));
        if (texte && commentaire)
            avant = TexteExact::Lire(doc.TmpFolder, *texte, *commentaire);
        if (!texte || !commentaire || avant.illisible)
            return false;
    }

    // Both are written whole before either takes its place: a full disk leaves the old ones, which belong together.
    FichierDuDossier fichier(chemin);
    FichierDuDossier fichierExact(cheminExact);
    if (!fichier.Ouvrir())
        return false;
    PuitsAppareil puits(fichier.Fichier());
    const std::optional<qint64> manques = EcrireTexteQrt(doc, "2", entrees, Codage::Cp1252, puits);
    if (!manques)
        return false;
    const bool exact = *manques > 0 || avant.commentaire;
    if (exact && !PreparerTexteExact(doc, entrees, avant.commentaire, fichierExact))
        return false;
    // The exact one first: until the other follows, a rescue copy still counts as later than what is there.
    if (exact && !fichierExact.Valider())
        return false;
    if (!fichier.Valider()) {
        if (exact)
            Remettre(cheminExact, avant.octets);
        return false;
    }
    if (!exact)
        SupprimerDuDossier(cheminExact);
    return true;
}

/// Puts all of the folder, which has these names, into a new archive; false when something of it is not in there at the
/// end.
bool EcrireArchive(Categorie& doc, const QStringList& noms, Origine origine, PlaceDuFichier& place)
{
    ccZip zip;
    zip.Init(place.Chemin());
    zip.Level = NiveauDesCatalogues;
    zip.Occuper(place);
    zip.Reprendre(std::move(origine));
    zip.Comm = QStringLiteral("Zelvane v2.2 by Morvenal");
    bool bon = true;
    for (const QString& nom : noms) {
        // A folder has no place in an archive of bare names; it is not a loss, as nothing of the category lies there.
        bon = (zip.AddFile(doc.TmpFolder + nom, 0, true) < 2 || QFileInfo(doc.TmpFolder + nom).isDir()) && bon;
        LaisserPasserEvenements();
    }
    bon = zip.Fermer() < 2 && bon;
    doc.Archive = zip.Connue;
    return bon;
}

bool EcrireTexte14(const QrtClass& doc, bool selection, QFileDevice& fichier)
{
    PuitsAppareil puits(fichier);
    return EcrireTexteQrt(doc, "1.4", Entrees(selection), Codage::Cp1252, puits).has_value();
}

/// The old file stays until the new one is whole, also when the disk is full; where the folder lets no new file in, the
/// file is written in place.
bool RemplacerParTexte14(const QrtClass& doc, bool selection, const PlaceDuFichier& place)
{
    const FichierProvisoire provisoire(place.Chemin());
    QFile fichier;
    if (!OuvrirParChemin(fichier, provisoire.Chemin(), s_aEcrire | QIODevice::NewOnly)) {
        return errno == EACCES && OuvrirParChemin(fichier, place.Chemin(), s_aEcrire) &&
               EcrireTexte14(doc, selection, fichier);
    }
    if (const std::optional<struct stat> ancien = place.Ancien())
        TransmettreDroits(fichier.handle(), *ancien);
    return EcrireTexte14(doc, selection, fichier) && provisoire.Deposer();
}

bool SelectionVide(const QrtClass& doc, bool selection)
{
    if (!selection || doc.SelItemsCount() > 0)
        return false;
    AfficherMsg(
        LangMsg(QStringLiteral("msg64"), QStringLiteral("Veuillez selectionner au moins une entrée à exporter")), MsgOk,
        QString());
    return true;
}

} // namespace

IssueEcriture Categorie::Ecrire(bool selection)
{
    constexpr auto rien = IssueEcriture::RienTouche;
    if (ColCount() == 0 || SelectionVide(*this, selection))
        return rien;
    // Events run while the archive is written. What would end the program, or open and close documents, waits.
    const Retenue retenue;
    EnEcriture = true;
    const auto fini = qScopeGuard([this] { EnEcriture = false; });

    PlaceDuFichier place(CibleDesLiens(CheminReel()));
    if (!place.Prendre() || !EcrireTextes(*this, Entrees(selection)))
        return rien;
    // All while the old file stands: where an error let a name be passed over, its file would be lost with it.
    const std::optional<QStringList> noms = NomsDuDossier(TmpFolder);
    if (!noms || !noms->contains(QStringLiteral("Zelvane.qrt")))
        return rien; // somebody may have cleared the folder away
    // Before its name goes.
    Origine origine = OuvrirOrigine(Archive);
    if (!place.SupprimerAncien())
        return rien;
    // At once: many files are looked at before the first byte is written, and the place must not stand free so long.
    place.Reserver();
    const bool bon = AvecMemoire([&] { return EcrireArchive(*this, *noms, std::move(origine), place); }, false);
    if (place.EstPerdue())
        return rien; // the file that stands there is another program's, and whole: what is here is still to be saved
    RegarderFichier();
    m_garder = !bon;
    AForcer = bon ? CheminReel() : QString();
    return bon ? IssueEcriture::Entiere : IssueEcriture::Incomplete;
}

bool EcrireFichier(Categorie& doc, bool selection)
{
    return doc.Ecrire(selection) != IssueEcriture::RienTouche;
}

bool EcrireTextesDuDossier(const Categorie& doc)
{
    return EcrireTextes(doc, Entrees(false));
}

void MsgArchiveIncomplete(const QrtClass& doc)
{
    AfficherMsg(LangMsg(QStringLiteral("msgArchive"),
                        QStringLiteral("Le fichier n'a pas pu être écrit en entier. Les données sont conservées "
                                       "dans le dossier :")) +
                    QStringLiteral("\n") + doc.TmpFolder,
                MsgOk, doc.filename());
}

bool AccepterPerteDeCaracteres(const QrtClass& doc)
{
    if (!TexteDepasseLaPage(doc))
        return true;
    return AfficherMsg(LangMsg(QStringLiteral("msgCaracteres"),
                               QStringLiteral("Certains caractères n'existent pas dans le format 1.4 et seront "
                                              "remplacés par « ? ». Continuer l'enregistrement?")),
                       MsgOuiNon, doc.filename()) == RepOui;
}

bool EcrireFichier14(Categorie& doc, bool selection)
{
    if (doc.ColCount() == 0 || SelectionVide(doc, selection))
        return false;
    PlaceDuFichier place(CibleDesLiens(doc.CheminReel()));
    if (!place.Prendre())
        return false;
    const std::optional<struct stat> ancien = place.Ancien();
    if (ancien && !S_ISREG(ancien->st_mode)) {
        // A device or a pipe is written to, never replaced.
        QFile fichier;
        return OuvrirParChemin(fichier, doc.CheminReel(), s_aEcrire) && EcrireTexte14(doc, selection, fichier);
    }
    if (ancien && access(OctetsDuChemin(place.Chemin()).constData(), W_OK) != 0)
        return false; // who protected it was asked before
    if (!RemplacerParTexte14(doc, selection, place))
        return false;
    doc.RegarderFichier();
    doc.AForcer = doc.CheminReel();
    return true;
}
