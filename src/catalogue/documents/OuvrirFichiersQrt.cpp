#include "catalogue/documents/OuvrirFichiersQrt.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/DialogueFichier.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/ChargerCatalogue.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/FichierRecent.h"
#include "catalogue/documents/NouveauDocument.h"
#include "catalogue/documents/OuvreursAjoutes.h"
#include "catalogue/documents/Sauver.h"
#include "extensions/langue/modLang.h"
#include "kit/ManqueDeMemoire.h"
#include "platform/Presence.h"

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

QStringList PlugIns;

namespace {

OuvreursAjoutes* s_ouvreurs = nullptr;

/// Their names go behind each other, with an empty one at the end; returned is what their types add to the
/// filter.
QString ChercherOuvreurs()
{
    QString filtre;
    for (const auto& ouvreur : s_ouvreurs ? s_ouvreurs->Chercher() : QList<OuvreursAjoutes::Ouvreur>()) {
        filtre += u'|' + ouvreur.filtre;
        PlugIns.last() = ouvreur.nom;
        PlugIns.append(QString());
    }
    return filtre;
}

/// The window in which the file is open. Paths are compared as they are spelled: the same file under another name
/// opens a second time.
FenetreDocument* FenetreDe(const Cadre& cadre, const QString& chemin)
{
    const auto fenetres = cadre.Documents();
    const auto trouvee = std::ranges::find_if(
        fenetres, [&](const FenetreDocument* fenetre) { return fenetre->myqrt.CheminReel() == chemin; });
    return trouvee == fenetres.end() ? nullptr : *trouvee;
}

DemandeFichier DemandeDOuverture()
{
    DemandeFichier demande;
    demande.titre = LangMsg(u"msg71"_s, u"Ouvrir une Categorie"_s);
    demande.types = TypesDuFiltre(FiltreDesCatalogues() + ChercherOuvreurs());
    demande.type = TypeQrt2;
    demande.plusieurs = true;
    return demande;
}

/// Whether the window in front shows its cells' lines, which the next one then does too.
bool GrilleDevant(const Cadre& cadre)
{
    const FenetreDocument* devant = cadre.FenetreActive();
    return !devant || devant->myqrt.Table.GridLines();
}

enum class Ouverture {
    Faite,
    Echouee,
    Abandonnee, ///< the user changed his mind: there is nothing to tell
};

/// A new window whose table the plug-in of that name fills. It has no path: its first save asks for one. Echouee where
/// there is no such plug-in; the user changes his mind in its dialog.
Ouverture OuvrirParPlugin(Cadre& cadre, const QString& chemin, const QString& nom)
{
    if (nom.isEmpty() || !s_ouvreurs)
        return Ouverture::Echouee;
    bool abandonnee = false;
    const bool grille = GrilleDevant(cadre);
    FenetreDocument* fenetre = NouveauDocument(cadre, NomDeFichier(chemin), [&](FenetreDocument& neuve) {
        neuve.myqrt.Table.SetGridLines(grille);
        neuve.myqrt.Table.SetView(3);
        abandonnee = !s_ouvreurs->Ouvrir(nom, neuve, chemin);
        return !abandonnee;
    });
    if (!fenetre)
        return abandonnee ? Ouverture::Abandonnee : Ouverture::Echouee;
    MontrerDocument(*fenetre);
    return Ouverture::Faite;
}

/// The file becomes the most recent one, in the window's own menu too.
void NoterRecent(FenetreDocument& fenetre, const QString& chemin)
{
    AjouterRecent(chemin);
    if (auto* menu = dynamic_cast<MenuRecents*>(&fenetre))
        MajMenuRecents(*menu);
}

/// The new window of a catalogue file, which `apres` may change before anybody sees it; null, of which the user has
/// been told, where there is none.
FenetreDocument* Charger(Cadre& cadre, const QString& chemin, const std::function<void(Categorie&)>& apres = {})
{
    const auto forme = AvecMemoire<std::optional<FormeFichier>>([&] { return FormeDuFichier(chemin); }, std::nullopt);
    if (!forme)
        return nullptr;
    return NouveauDocument(cadre, NomDeFichier(chemin), [&](FenetreDocument& neuve) {
        const bool chargee = ChargerCatalogue(neuve.myqrt, chemin, *forme);
        if (chargee && apres)
            apres(neuve.myqrt);
        return chargee;
    });
}

/// The comments greet who opens the category, where the user wants that and there are any.
void MontrerCommentaires(FenetreDocument& fenetre)
{
    if (LireOption(Options::commentAtStartup) && Commentaires::AMontrer(fenetre.myqrt.TmpFolder))
        fenetre.mModifierCommentaires_Click();
}

/// See OuvrirFichier.
Ouverture Tenter(Cadre& cadre, const QString& chemin, int type, bool montrerMessages)
{
    if (FenetreDocument* dejaLa = FenetreDe(cadre, chemin)) {
        if (montrerMessages)
            AfficherMsg(LangMsg(u"msg48"_s, u"Le fichier est deja ouvert :"_s) + (u'\n' + chemin), MsgOk, QString());
        cadre.AmenerDevant(*dejaLa);
        return Ouverture::Echouee;
    }
    if (!PeutExister(chemin)) {
        MsgFichierAbsent();
        RetirerRecent(chemin);
        return Ouverture::Echouee;
    }
    if (type >= PremierTypePlugIn)
        return OuvrirParPlugin(cadre, chemin, PlugIns.value(type - PremierTypePlugIn));
    FenetreDocument* fenetre = Charger(cadre, chemin);
    if (!fenetre)
        return Ouverture::Echouee;
    NoterRecent(*fenetre, chemin);
    MontrerDocument(*fenetre);
    return Ouverture::Faite;
}

/// Opens all of them, each by itself: one that fails does not keep the next from being tried.
void OuvrirPlusieurs(Cadre& cadre, const QStringList& fichiers, int type)
{
    for (const QString& fichier : fichiers) {
        if (Tenter(cadre, fichier, type, true) == Ouverture::Echouee)
            AfficherMsg(LangMsg(u"msg47"_s, u"Erreur d'ouverture :"_s) + (u'\n' + fichier), MsgOk, QString());
    }
}

} // namespace

void MontrerDocument(FenetreDocument& fenetre)
{
    if (!LireOption(Options::AffImg))
        fenetre.mAfficherImages_Click();
    MontrerCommentaires(fenetre);
    // Nothing that happened so far is to be saved: a loan column added by the reader is not, and comments that were
    // changed just now are not either. That is meant.
    fenetre.myqrt.IlFautSauver = false;
    fenetre.myqrt.Ouvrir->Montrer(false);
}

bool OuvrirFichier(Cadre& cadre, const QString& chemin, int type, bool montrerMessages)
{
    return Tenter(cadre, chemin, type, montrerMessages) == Ouverture::Faite;
}

bool OuvrirCommeNeuf(Cadre& cadre, const QString& chemin)
{
    // Its path goes before anything is shown: whatever the user does meanwhile finds no file to write to.
    FenetreDocument* fenetre = Charger(cadre, chemin, [](Categorie& doc) {
        doc.SetCheminReel(QString());
        doc.FileType.clear();
    });
    if (!fenetre)
        return false;
    MontrerDocument(*fenetre);
    return true;
}

OuvreursAjoutes* InstallerOuvreurs(OuvreursAjoutes* ouvreurs)
{
    return std::exchange(s_ouvreurs, ouvreurs);
}

void OuvrirDialogue(Cadre& cadre)
{
    PlugIns = {QString()};
    DemandeFichier demande = DemandeDOuverture();
    for (;;) {
        demande.depart = LireOption(Options::OpenInitDir);
        const std::optional<ReponseFichier> reponse = DialogueOuvrir(demande);
        if (!reponse || reponse->fichiers.isEmpty())
            return;
        const QString& premier = reponse->fichiers.first();
        EcrireOption(Options::OpenInitDir, premier.chopped(NomDeFichier(premier).size()));
        if (reponse->type == TypeTous) {
            AfficherMsg(LangMsg(u"msg46"_s, u"Veuillez selectionner un type pour votre fichier"_s), MsgOk, QString());
            continue;
        }
        if (reponse->fichiers.size() > 1)
            return OuvrirPlusieurs(cadre, reponse->fichiers, reponse->type);
        if (OuvrirFichier(cadre, premier, reponse->type, true))
            return;
    }
}
