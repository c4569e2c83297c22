#include "shell/Toolbars.h"

#include "base/AfficherMsg.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/FichierRecent.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "entries/NouvelleCategorie.h"
#include "entries/mEditLV.h"
#include "extensions/dialogues/About.h"
#include "extensions/dialogues/frmTip.h"
#include "kit/FenetreDessous.h"
#include "lending/mPret.h"
#include "output/modImprimerLV.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// ---- Buttons

constexpr int PlaceDEditcat = 4;
constexpr int PlaceDAide = 15;

constexpr std::array<BoutonDeBarre, 16> Petits{{
    {u"addentree", u"Ajouter une entree (Ctrl+E)", u"addentree"},
    {u"editentree", u"Editer une entrée (Entree)", u"editentree"},
    {u"delentree", u"Supprimer Entrée (Suppr)", u"delentree"},
    {u"addcat", u"Nouvelle Catégorie (Ctrl+N)", u"addcat"},
    {u"editcat", u"Editer catégorie (Ctrl+M)", u"editcat"},
    {u"ouvrir", u"ouvrir une catégorie", u"open"},
    {u"save", u"Enregistrer la catégorie", u"save"},
    {u"print", u"Imprimer", u"print"},
    {u"preter", u"Marquer comme Prete", u"prete"},
    {u"rendu", u"Marquer comme Rendu", u"rendu"},
    {u"rechercher", u"Rechercher", u"rechercher"},
    {u"grille", u"Afficher/Cacher la grille", u"grille"},
    {u"image", u"Afficher/Cacher les images", u"image"},
    // Its blank is meant: the button ends in "Rien", and callers that mean the comments pass the key without it.
    {u"commentaire ", u"Afficher/Cacher les commentaires", u"showtexte"},
    {u"apropos", u"Boite de dialogue A porpos", u"apropos"},
    {u"aide", u"Afficher l'aide", u"aide"},
}};

constexpr std::array<BoutonDeBarre, 16> FaireGrands()
{
    auto grands = Petits;
    grands[PlaceDEditcat].infoBulle = u"Editer catégorie";
    grands[PlaceDAide].image = u"help";
    return grands;
}

constexpr std::array<BoutonDeBarre, 16> Grands = FaireGrands();

/// The commands whose work comes later. A command that is done leaves this list, and is enabled everywhere.
constexpr std::array AVenir = std::to_array<QStringView>({
    u"editcat",    // the columns of a category
    u"rechercher", // the search
    u"preter",     // lending
    u"rendu",      // taking back
    u"print",      // printing
    u"copier",     // the clipboard; not a key of Commande, but of the pop-up menus
    u"coller",
});

constexpr std::array SansDocument = std::to_array<QStringView>({u"addcat", u"apropos", u"aide", u"ouvrir"});

// ---- Commands

/// Modal, unlike the tips at the start: those go first, or they would stand behind and answer no click.
void MontrerAstuces()
{
    QWidget* parent = FenetreDessous();
    if (auto* duDepart = parent ? parent->findChild<frmTip*>() : nullptr)
        duDepart->close();
    frmTip(parent).exec();
}

bool CommanderLeCadre(Cadre& cadre, const QString& cle)
{
    if (cle == u"addcat")
        NouvelleCategorie(cadre);
    else if (cle == u"ouvrir")
        OuvrirDialogue(cadre);
    else if (cle == u"apropos")
        MontrerAstuces(); // this command and the next are crossed; it is meant
    else if (cle == u"aide")
        About(FenetreDessous()).exec();
    else
        return false;
    return true;
}

bool CommanderLesEntrees(FenetreDocument& fenetre, const QString& cle)
{
    if (cle == u"addentree") {
        AjouterEntree(fenetre);
    } else if (cle == u"editentree") {
        EditerEntrees(fenetre, true, true);
    } else if (cle == u"delentree") {
        SupprimerEntrees(fenetre);
        RecalculerCles(*fenetre.myqrt.MyLV);
    } else if (cle == u"preter") {
        MarquerPrete(fenetre);
    } else if (cle == u"rendu") {
        MarquerRendu(fenetre);
    } else {
        return false;
    }
    return true;
}

bool CommanderLaVue(FenetreDocument& fenetre, const QString& cle)
{
    MyLV& table = *fenetre.myqrt.MyLV;
    if (cle == u"grille") {
        table.SetGridLines(!table.GridLines());
        fenetre.RedrawAll();
    } else if (cle == u"image") {
        fenetre.mAfficherImages_Click();
    } else if (cle == u"editcat") {
        fenetre.mModifierCategorie_Click();
    } else if (cle == u"commentaire") {
        fenetre.mModifierCommentaires_Click();
    } else if (cle == u"rechercher") {
        fenetre.mRechercher_Click();
    } else if (cle == u"print") {
        const QrtClass& doc = fenetre.myqrt;
        fenetre.myqrt.IlFautSauver = ImprimerListe(table, doc.TmpFolder, doc.filename());
    } else {
        return false;
    }
    return true;
}

} // namespace

void Commande(Cadre& cadre, const QString& cle)
{
    if (CommanderLeCadre(cadre, cle))
        return;
    FenetreDocument* fenetre = cadre.FenetreActive();
    if (!fenetre)
        return;
    if (cle == u"save")
        EnregistrerEtTitrer(cadre, *fenetre, false);
    else if (!CommanderLesEntrees(*fenetre, cle) && !CommanderLaVue(*fenetre, cle))
        AfficherMsg(u"Rien"_s, MsgOk, QString());
}

bool VeutUnDocument(QStringView cle)
{
    return std::ranges::find(SansDocument, cle) == SansDocument.end();
}

bool CommandeDisponible(QStringView cle)
{
    return std::ranges::find(AVenir, cle) == AVenir.end();
}

void EnregistrerEtTitrer(Cadre& cadre, FenetreDocument& fenetre, bool sous)
{
    Enregistrer(fenetre.myqrt, sous, true);
    // A document that was never saved keeps the name it goes by.
    if (const QString nom = fenetre.myqrt.filename(); !nom.isEmpty()) {
        fenetre.SetCaption(nom);
        cadre.MettreTitreOnglet(fenetre, nom);
    }
    for (MenuRecents* menus : {dynamic_cast<MenuRecents*>(&fenetre), dynamic_cast<MenuRecents*>(&cadre)}) {
        if (menus)
            MajMenuRecents(*menus);
    }
}

std::span<const BoutonDeBarre> BoutonsDeToolbar1()
{
    return Petits;
}

std::span<const BoutonDeBarre> BoutonsDeToolbar2()
{
    return Grands;
}
