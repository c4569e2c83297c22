// What the menus and keys of a document window do.
#include "shell/Form1.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/TriDeTable.h"
#include "entries/NouvelleCategorie.h"
#include "entries/mEditLV.h"
#include "extensions/dialogues/frmCommentaires.h"
#include "kit/FenetreDessous.h"
#include "shell/Toolbars.h"
#include "vue/MesuresDeVue.h"
#include "vue/mAjustColListView.h"

#include <QAction>

using namespace Qt::StringLiterals;

Cadre* Form1::CadreAutour() const
{
    return dynamic_cast<Cadre*>(window());
}

BarresDuCadre* Form1::BarresAutour() const
{
    return dynamic_cast<BarresDuCadre*>(window());
}

/// The item has no command and stays in its menu. That is meant.
void Form1::SansEffet() {}

// ---- files

void Form1::mCategorie_Click()
{
    if (Cadre* cadre = CadreAutour())
        NouvelleCategorie(*cadre);
}

void Form1::mOuvrir_Click()
{
    if (Cadre* cadre = CadreAutour())
        OuvrirDialogue(*cadre);
    MajRecents();
}

void Form1::mRecent_Click(int index)
{
    if (Cadre* cadre = CadreAutour())
        OuvrirFichier(*cadre, ItemNomme(u"mRecent_%1"_s.arg(index)).data().toString(), TypeQrt2, true);
    MajRecents();
}

void Form1::MajRecents()
{
    MajMenuRecents(*this);
    if (auto* cadre = dynamic_cast<MenuRecents*>(window()))
        MajMenuRecents(*cadre);
}

void Form1::mEnregistrer_Click()
{
    Sauvegarder(false);
}

void Form1::mEnregistrerSous_Click()
{
    Sauvegarder(true);
}

void Form1::Sauvegarder(bool sous)
{
    if (Cadre* cadre = CadreAutour())
        EnregistrerEtTitrer(*cadre, *this, sous);
}

void Form1::mEnregistrerTout_Click()
{
    if (Cadre* cadre = CadreAutour())
        EnregistrerTout(*cadre);
    MajRecents();
}

void Form1::mFermerTout_Click()
{
    ToutFermer();
}

/// The whole program ends, when every document agrees.
void Form1::mQuitter_Click()
{
    window()->close();
}

// ---- entries

void Form1::mEntree_Click()
{
    AjouterEntree(*this);
}

void Form1::mModifierEnree_Click()
{
    EditerEntrees(*this, true, true);
}

void Form1::mSupprimerEntree_Click()
{
    SupprimerEntrees(*this);
    RecalculerCles(m_table);
    RedrawAll();
}

void Form1::mVoir_Click()
{
    if (myqrt.SelItemsCount() == 1)
        VoirEntree(m_table, PremiereSelection(m_table), myqrt.TmpFolder);
}

/// A command stands in the menus, and is disabled there as long as it cannot run.
void Form1::ToucheDeCommande(VueTable::Touche touche)
{
    AccorderMenus();
    switch (touche) {
    case VueTable::Touche::Editer:
        ItemNomme(u"mModifierEnree"_s).trigger();
        break;
    case VueTable::Touche::Voir:
        // The one with the focus, which need not be the one that is selected.
        VoirEntree(m_table, m_table.SelectedItem().Index(), myqrt.TmpFolder);
        break;
    case VueTable::Touche::Supprimer:
        ItemNomme(u"mSupprimerEntree"_s).trigger();
        break;
    case VueTable::Touche::Ajouter:
        ItemNomme(u"mEntree"_s).trigger();
        break;
    }
}

void Form1::DoubleClicTable()
{
    AccorderMenus();
    ItemNomme(u"mVoir"_s).trigger();
}

void Form1::DoubleClicImage()
{
    AccorderMenus();
    if (myqrt.SelItemsCount() == 1)
        ItemNomme(u"mModifierEnree"_s).trigger();
}

void Form1::MontrerMenuClickDroit(bool avecSelection, const QPoint& place)
{
    if (BarresDuCadre* barres = BarresAutour())
        barres->MontrerMenuClickDroit(avecSelection, place);
}

void Form1::ClicDroitTable(const QPoint& place)
{
    MontrerMenuClickDroit(myqrt.SelItemsCount() > 0, place);
    RedrawAll();
}

/// The menu of a selection, whether there is one or not. That is meant.
void Form1::ClicDroitImage(const QPoint& place)
{
    RedrawAll(true);
    MontrerMenuClickDroit(true, place);
}

// ---- the category

void Form1::mModifierCategorie_Click()
{
    ItemNomme(u"mModifierCategorie"_s).trigger();
}

void Form1::mRechercher_Click()
{
    ItemNomme(u"mRechercher"_s).trigger();
}

void Form1::mModifierCommentaires_Click()
{
    CommentairesDuDossier stock;
    const QString chemin = myqrt.TmpFolder + Commentaires::NomDuFichier();
    if (ModifierCommentaires(stock, chemin, myqrt.filename(), FenetreDessous()))
        myqrt.IlFautSauver = true;
}

void Form1::mFusionner2Categories_Click()
{
    AfficherMsg(Message(u"Pas fait"_s), MsgOk, QString());
}

// ---- the view

void Form1::GrilleBasculee()
{
    m_table.SetGridLines(ItemNomme(u"mAfficherGrille"_s).isChecked());
    RedrawAll();
}

void Form1::mAfficherImages_Click()
{
    ItemNomme(u"mAfficherImages"_s).trigger();
}

void Form1::ImagesBasculees()
{
    EcrireOption(u"AffImg"_s, ItemNomme(u"mAfficherImages"_s).isChecked());
    RedrawAll(true);
}

void Form1::GrandesIconesBasculees()
{
    if (BarresDuCadre* barres = BarresAutour())
        barres->mGrandesIcones_Click();
    RedrawAll();
}

void Form1::mActualiser_Click()
{
    Retrier(m_table);
    if (const ListItem entree = m_table.SelectedItem())
        ListView1().RendreVisible(entree.Index());
    RedrawAll(true);
}

void Form1::mRedimentionAutomatique_Click()
{
    AjusterColonnes(m_table, MesuresDeVue(ListView1(), *this));
}

void Form1::mRedimAuto2_Click()
{
    RedimensionnerColonnes(m_table, ListView1().UnitesDe(ListView1().width()));
}
