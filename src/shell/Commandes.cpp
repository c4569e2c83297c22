#include "shell/Commandes.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "catalogue/documents/FichierRecent.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/TriDeTable.h"
#include "columns/OutilsDeColonnes.h"
#include "entries/NouvelleCategorie.h"
#include "entries/mClipBoard.h"
#include "entries/mEditLV.h"
#include "entries/mPreenregistre.h"
#include "extensions/dialogues/About.h"
#include "extensions/dialogues/Aide.h"
#include "extensions/dialogues/frmLang.h"
#include "extensions/dialogues/frmTip.h"
#include "extensions/plugins/frmPlugins.h"
#include "kit/FenetreDessous.h"
#include "lending/frmContacts.h"
#include "lending/frmMail.h"
#include "lending/mPret.h"
#include "output/ExporterCategorie.h"
#include "output/frmStat.h"
#include "output/modImprimerLV.h"
#include "search/frmCompare1.h"
#include "shell/MDIForm1.h"
#include "shell/frmOptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using Lieu = const LieuDeCommande&;

namespace {

MyLV& TableDe(Lieu lieu)
{
    return *lieu.document->myqrt.MyLV;
}

// ---- of the frame

/// Modal, unlike the tips at the start: those go first, or they would stand behind and answer no click.
void MontrerAstuces(Lieu)
{
    QWidget* parent = FenetreDessous();
    if (auto* duDepart = parent ? parent->findChild<frmTip*>() : nullptr)
        duDepart->close();
    frmTip(parent).exec();
}

void MontrerAPropos(Lieu)
{
    About(FenetreDessous()).exec();
}

void ChoisirLangue(Lieu lieu)
{
    frmLang([lieu] { lieu.cadre.langChange(); }, FenetreDessous()).exec();
}

void Ouvrir(Lieu lieu)
{
    OuvrirDialogue(lieu.cadre);
    lieu.cadre.MajRecents();
}

// ---- files

void EnregistrerTous(Lieu lieu)
{
    EnregistrerTout(lieu.cadre);
    lieu.cadre.MajRecents();
}

void Sauver(Lieu lieu, bool sous)
{
    Enregistrer(lieu.document->myqrt, sous, true);
    lieu.cadre.MontrerNom(*lieu.document);
}

void Exporter(Lieu lieu)
{
    bool selectionUniquement = false;
    ExporterCategorie(lieu.document->myqrt, selectionUniquement);
}

void Imprimer(Lieu lieu)
{
    Categorie& doc = lieu.document->myqrt;
    doc.EcraserIlFautSauver(ImprimerListe(*doc.MyLV, doc.TmpFolder, doc.filename()));
}

// ---- entries

void Supprimer(Lieu lieu)
{
    SupprimerEntrees(*lieu.document);
    RecalculerCles(TableDe(lieu));
    lieu.document->RedrawAll();
}

void Voir(Lieu lieu)
{
    MyLV& table = TableDe(lieu);
    VoirEntree(table, PremiereSelection(table), lieu.document->myqrt.TmpFolder);
}

void CollerDansFenetre(Lieu lieu, void (*coller)(Categorie&))
{
    coller(lieu.document->myqrt);
    lieu.document->RedrawAll();
}

// ---- the view

void BasculerGrille(Lieu lieu)
{
    TableDe(lieu).SetGridLines(!TableDe(lieu).GridLines());
    lieu.document->RedrawAll();
}

void BasculerIcones(Lieu lieu)
{
    lieu.cadre.mGrandesIcones_Click();
    if (lieu.document)
        lieu.document->RedrawAll();
}

void Actualiser(Lieu lieu)
{
    Retrier(TableDe(lieu));
    if (const ListItemLu entree = TableDe(lieu).SelectedItem())
        lieu.document->RendreVisible(entree.Index());
    lieu.document->RedrawAll(true);
}

void Ajuster(Lieu lieu)
{
    lieu.document->ListView1().AjusterColonnes(*lieu.document);
}

void Redimensionner(Lieu lieu)
{
    lieu.document->ListView1().RedimensionnerColonnes();
}

// ---- two categories

/// The user goes on working in the documents while the window of results is there. From the frame alone it is modal.
void Comparer(Lieu lieu)
{
    frmCompare1::Montrer(lieu.cadre, lieu.cadre, lieu.document ? Qt::NonModal : Qt::ApplicationModal);
}

// ---- oddities, which are meant

void NeRienFaire(Lieu) {}

void DireRien(Lieu)
{
    AfficherMsg(u"Rien"_s, MsgOk, QString());
}

void DirePasFait(Lieu)
{
    AfficherMsg(Message(u"Pas fait"_s), MsgOk, QString());
}

// ---- the rows

constexpr RangDeCommande Rangs[] = {
    // Of the frame.
    {u"addcat", u"Catégorie", "addcat", "Ctrl+N", Besoin::Rien, [](Lieu l) { NouvelleCategorie(l.cadre); }},
    // It can be chosen, and nothing comes of it: scripts are edited elsewhere.
    {u"script", u"Script d'Edition", "", "", Besoin::Rien, NeRienFaire},
    {u"ouvrir", u"&Ouvrir", "open", "Ctrl+O", Besoin::Rien, Ouvrir},
    // Never does anything, and its item stays: plug-ins import, from menus of their own.
    {u"importer", u"&Importer", "import"},
    {u"quitter", u"&Quitter", "quit", "Ctrl+Q", Besoin::Rien, [](Lieu l) { l.cadre.close(); }},
    {u"grandesicones", u"G&randes Icones", "", "", Besoin::Rien, BasculerIcones,
     [](Lieu l) { return l.cadre.GrandesIcones(); }},
    {u"configuration", u"&Configuration", "options", "", Besoin::Rien,
     [](Lieu) { frmOptions(FenetreDessous()).exec(); }},
    {u"langue", u"Langue", "langue", "", Besoin::Rien, ChoisirLangue},
    {u"cascade", u"En &cascade", "cascade", "", Besoin::Rien, [](Lieu l) { l.cadre.EnCascade(); }},
    {u"mosaiqueh", u"Mosaïque &horizontale", "mosaiqueh", "", Besoin::Rien,
     [](Lieu l) { l.cadre.EnMosaique(Mosaique::Horizontale); }},
    {u"mosaiquev", u"Mosaïque &verticale", "mosaiquev", "", Besoin::Rien,
     [](Lieu l) { l.cadre.EnMosaique(Mosaique::Verticale); }},
    {u"arranger", u"&Arranger les icônes", "", "", Besoin::Rien, [](Lieu l) { l.cadre.ArrangerLesIcones(); }},
    {u"reduire", u"&Minimiser tout", "reduire", "", Besoin::Rien, [](Lieu l) { l.cadre.MinimiserTout(); }},
    {u"restaurer", u"&Restaurer tout", "restaurer", "", Besoin::Rien, [](Lieu l) { l.cadre.RestaurerTout(); }},
    {u"pages", u"&Aide de Zelvane", "help", "F1", Besoin::Rien, [](Lieu l) { AfficherAide(l.document); }},
    {u"web", u"&Zelvane sur le Web", "web", "", Besoin::Rien, [](Lieu) { AfficherPageDAccueil(); }},
    {u"boite", u"A &Propos", "apropos", "", Besoin::Rien, MontrerAPropos},
    // These two are crossed: buttons and tips speak of the other one. It is meant.
    {u"apropos", u"", "apropos", "", Besoin::Rien, MontrerAstuces},
    {u"aide", u"", "aide", "", Besoin::Rien, MontrerAPropos},

    // Files.
    {u"save", u"&Enregistrer", "save", "Ctrl+S", Besoin::Document, [](Lieu l) { Sauver(l, false); }},
    {u"saveas", u"Enregistrer &Sous", "saveas", "Ctrl+Shift+S", Besoin::Document, [](Lieu l) { Sauver(l, true); }},
    {u"saveall", u"Enregistrer To&ut", "saveall", "", Besoin::DeuxDocuments, EnregistrerTous},
    {u"exporter", u"E&xporter", "export", "", Besoin::Document, Exporter},
    {u"print", u"Im&primer", "print", "Ctrl+P", Besoin::Document, Imprimer},
    {u"devant", u"Restaurer", "restaurer", "", Besoin::Document, [](Lieu l) { l.cadre.AmenerDevant(*l.document); }},
    {u"fermer", u"&Fermer", "close", "Ctrl+W; Ctrl+F4", Besoin::Document, [](Lieu l) { l.document->Decharger(); }},
    {u"fermertout", u"Fermer &Tout", "closeall", "Ctrl+Shift+W", Besoin::DeuxDocuments, [](Lieu) { ToutFermer(); }},

    // Entries.
    {u"addentree", u"&Ajouter une entrée", "addentree", "Ctrl+E", Besoin::Document,
     [](Lieu l) { AjouterEntree(*l.document); }},
    {.cle = u"editentree",
     .caption = u"&Editer l'entrée",
     .image = "editentree",
     .touches = "Enter",
     .besoin = Besoin::Selection,
     .faire = [](Lieu l) { EditerEntrees(*l.document, true, true); },
     .toucheDeTable = true},
    {.cle = u"delentree",
     .caption = u"&Supprimer l'entrée",
     .image = "delentree",
     .touches = "Del",
     .besoin = Besoin::Document,
     .faire = Supprimer,
     .toucheDeTable = true},
    {.cle = u"voir",
     .caption = u"&Voir l'entrée",
     .image = "voir",
     .touches = "Shift+Enter",
     .besoin = Besoin::UneEntree,
     .faire = Voir,
     .toucheDeTable = true},
    {u"copier", u"&Copier", "copy", "Ctrl+C", Besoin::Selection,
     [](Lieu l) { CopierSelection(TableDe(l), l.document->myqrt.TmpFolder); }},
    {u"coller", u"C&oller", "paste", "Ctrl+V", Besoin::Document, [](Lieu l) { CollerDansFenetre(l, Coller); }},
    {u"copieparlot", u"Copie par &lot", "", "", Besoin::Document, [](Lieu l) { CollerDansFenetre(l, CollerParLot); }},
    {u"rechercher", u"&Rechercher", "rechercher", "Ctrl+F", Besoin::Document,
     [](Lieu l) { l.document->mRechercher_Click(); }},
    // Never does anything, and its item stays.
    {u"remplacer", u"Re&mplacer", "", "", Besoin::Document},

    // The category.
    {u"editcat", u"Editer la ca&tégorie", "editcat", "Ctrl+M", Besoin::Document,
     [](Lieu l) { ModifierCategorie(*l.document); }},
    {u"commentaire", u"Comme&ntaires", "showtexte", "", Besoin::Document,
     [](Lieu l) { l.document->mModifierCommentaires_Click(); }},
    // The button's key ends in a blank, which is meant: the button says "Rien".
    {u"commentaire ", u"", "showtexte", "", Besoin::Document, DireRien},
    {u"textes", u"Textes &pré-enregistrés", "", "", Besoin::Document,
     [](Lieu l) { GererPreEnregistres(l.document->myqrt); }},
    {u"fusioncolonnes", u"&Fusionner 2 colonnes", "", "", Besoin::Document,
     [](Lieu l) { FusionnerColonnes(*l.document); }},
    {u"separer", u"&Séparer 1 colonne en 2", "", "", Besoin::Document, [](Lieu l) { SeparerColonne(*l.document); }},
    {u"dupliquer", u"&Dupliquer une colonne", "", "", Besoin::Document, [](Lieu l) { DupliquerColonne(*l.document); }},
    // Says so, in no language but this one. It is meant.
    {u"fusioncategories", u"Fusionner &2 catégories", "", "", Besoin::Document, DirePasFait},
    {u"comparer", u"&Comparer 2 catégories", "compare", "", Besoin::Rien, Comparer},
    {u"statistiques", u"S&tatistiques", "stats", "", Besoin::Document,
     [](Lieu l) { frmStat(l.document->myqrt, FenetreDessous()).exec(); }},

    // The view.
    {u"grille", u"Afficher la &grille", "grille", "", Besoin::Document, BasculerGrille,
     [](Lieu l) { return l.document && TableDe(l).GridLines(); }},
    {u"image", u"Afficher les &images", "image", "", Besoin::Document,
     [](Lieu l) { l.document->mAfficherImages_Click(); },
     [](Lieu l) { return l.document && l.document->ImagesMontrees(); }},
    {u"actualiser", u"&Actualiser", "refresh", "F5", Besoin::Document, Actualiser},
    {u"ajuster", u"Redimensionner selon le &contenu", "largeur", "Ctrl+R", Besoin::Document, Ajuster},
    {u"redimensionner", u"Redimensionner selon la &fenêtre", "", "Ctrl+D", Besoin::Entrees, Redimensionner},

    // Lending.
    {u"preter", u"Marquer comme &Prêté", "prete", "", Besoin::Document,
     [](Lieu l) { MarquerPrete(l.document->myqrt); }},
    {u"rendu", u"Marquer comme &Rendu", "rendu", "", Besoin::Document, [](Lieu l) { MarquerRendu(l.document->myqrt); }},
    {u"contacts", u"&Organiser ses contacts", "", "", Besoin::Document,
     [](Lieu) { frmContacts(FenetreDessous()).exec(); }},
    {u"mail", u"&Envoyer un mail d'avertissement", "mail", "", Besoin::Document,
     [](Lieu l) { frmMail::Montrer(l.cadre); }},

    {u"plusplugins", u"Plus de plugins", "", "", Besoin::Document,
     [](Lieu l) { frmPlugins(*l.document, FenetreDessous()).exec(); }},
};

} // namespace

EtatDuLieu::EtatDuLieu(const LieuDeCommande& lieu)
    : document(lieu.document), documents(static_cast<int>(lieu.cadre.Documents().size()))
{
    if (document) {
        entrees = lieu.document->myqrt.ItemsCount();
        choisies = lieu.document->myqrt.SelItemsCount();
    }
}

bool EtatDuLieu::Comble(Besoin besoin) const
{
    switch (besoin) {
    case Besoin::Rien:
        return true;
    case Besoin::Document:
        return document;
    case Besoin::Entrees:
        return entrees > 0;
    case Besoin::Selection:
        return choisies > 0;
    case Besoin::UneEntree:
        return choisies == 1;
    case Besoin::DeuxDocuments:
        return documents > 1;
    }
    return false;
}

std::span<const RangDeCommande> TableDesCommandes()
{
    return Rangs;
}

const RangDeCommande* Rang(QStringView cle)
{
    const auto* rang = std::ranges::find(Rangs, cle, [](const RangDeCommande& r) { return QStringView(r.cle); });
    return rang == std::end(Rangs) ? nullptr : rang;
}

bool EstPossible(const RangDeCommande& rang, const EtatDuLieu& etat)
{
    return rang.faire && etat.Comble(rang.besoin);
}

void Executer(QStringView cle, const LieuDeCommande& lieu)
{
    const RangDeCommande* rang = Rang(cle);
    if (rang && EstPossible(*rang, EtatDuLieu(lieu)))
        rang->faire(lieu);
}
