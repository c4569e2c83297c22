// What the keys and clicks in a document window do.
#include "shell/Form1.h"

#include "base/AfficherMsg.h"
#include "base/Options.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "entries/DeposerEntrees.h"
#include "entries/TirerEntrees.h"
#include "entries/mEditLV.h"
#include "extensions/dialogues/frmCommentaires.h"
#include "extensions/langue/modLang.h"
#include "kit/FenetreDessous.h"
#include "platform/Retenue.h"
#include "search/frmRecherche.h"
#include "shell/MDIForm1.h"

#include <QAction>

using namespace Qt::StringLiterals;

/// While a file is being replaced it waits.
void Form1::Lancer(QStringView cle)
{
    Retenue::Apres(this, [this, cle] { Executer(cle, Lieu()); });
}

LieuDeCommande Form1::Lieu()
{
    return {m_cadre, this};
}

void Form1::mRecent_Click(int index)
{
    OuvrirFichier(m_cadre, ItemNomme(u"mRecent_%1"_s.arg(index)).data().toString(), TypeQrt2, true);
    m_cadre.MajRecents();
}

// ---- entries

void Form1::ToucheDeCommande(VueTable::Touche touche)
{
    switch (touche) {
    case VueTable::Touche::Editer:
        Lancer(u"editentree");
        break;
    case VueTable::Touche::Voir:
        // The one with the focus, which need not be the one that is selected.
        VoirEntree(myqrt.Table, myqrt.Table.SelectedItem().Index(), myqrt.TmpFolder);
        break;
    case VueTable::Touche::Supprimer:
        Lancer(u"delentree");
        break;
    case VueTable::Touche::Ajouter:
        Lancer(u"addentree");
        break;
    }
}

void Form1::DoubleClicTable()
{
    Lancer(u"voir");
}

void Form1::DoubleClicImage()
{
    if (myqrt.SelItemsCount() == 1)
        Lancer(u"editentree");
}

void Form1::TirerLesEntrees()
{
    TirerEntrees(ListView1(), myqrt);
}

/// While a file is being replaced it waits. The keys may still be those of the program that it comes from.
void Form1::TexteDepose(const QString& texte)
{
    m_cadre.activateWindow();
    Retenue::Apres(this, [this, texte] { DeposerEntrees(m_cadre, *this, texte); });
}

void Form1::ClicDroitTable(const QPoint& place)
{
    m_cadre.MontrerMenuClickDroit(myqrt.SelItemsCount() > 0, place);
    RedrawAll();
}

/// The menu of a selection, whether there is one or not. That is meant.
void Form1::ClicDroitImage(const QPoint& place)
{
    RedrawAll(true);
    m_cadre.MontrerMenuClickDroit(true, place);
}

// ---- the category

void Form1::mModifierCategorie_Click()
{
    Lancer(u"editcat");
}

/// A search reads what was saved. False when there is nothing of the kind: a category that was never saved still is
/// not.
bool Form1::EnregistrerPourRechercher()
{
    if (!myqrt.IlFautSauver)
        return true;
    const bool jamais = myqrt.CheminReel().isEmpty();
    AfficherMsg(jamais ? LangMsg(u"msg43"_s, u"Pour que la recherche fonctionne correctement, veuillez enregistrer "
                                             u"votre fichier."_s)
                       : LangMsg(u"msg45"_s, u"Pour que la recherche tienne compte des modifications effectuées, "
                                             u"veuillez enregistrer votre fichier."_s),
                MsgOk, QString());
    if (Enregistrer(myqrt, false, jamais)) {
        m_cadre.MontrerNom(*this);
        return true;
    }
    if (jamais)
        AfficherMsg(LangMsg(u"msg44"_s, u"Recherche annulée"_s), MsgOk, QString());
    return !jamais;
}

void Form1::mRechercher_Click()
{
    if (!EnregistrerPourRechercher())
        return;
    frmRecherche form(FenetreDessous());
    form.SetDocument(*this);
    form.Lancer();
    RedrawAll();
}

void Form1::mModifierCommentaires_Click()
{
    const QString chemin = myqrt.TmpFolder + Commentaires::NomDuFichier();
    if (ModifierCommentaires(chemin, myqrt.filename(), FenetreDessous()))
        myqrt.IlFautSauver = true;
}

void Form1::mAfficherImages_Click()
{
    m_images = !m_images;
    EcrireOption(Options::AffImg, m_images);
    RedrawAll(true);
}
