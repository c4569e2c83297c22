#include "entries/mEditLV.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/documents/FenetreDocument.h"
#include "entries/SaisieDEntree.h"
#include "entries/frmEditEntree.h"
#include "entries/frmSuppr.h"
#include "extensions/langue/modLang.h"
#include "images/frmView.h"
#include "kit/FenetreDessous.h"
#include "kit/frmAvancement.h"

using namespace Qt::StringLiterals;

namespace {

bool AccepterEditionMultiple()
{
    if (!LireOption(Options::MessageEditMulti))
        return true;
    const Message question =
        LangMsg(u"msg99"_s, u"Attention, les modifications affecteront toutes les entrées sélectionnées !"_s);
    return AfficherMsg(question, MsgOuiNonAnnuler, QString()) == RepOui;
}

SaisieEntree SaisieDe(const frmEditEntree& form)
{
    QStringList textes;
    for (int ligne = 1; ligne <= form.NombreDeLignes(); ++ligne)
        textes.append(form.Textes(ligne));
    return {form.Valeurs(), textes, form.ImgTag()};
}

/// What of the open form validating it would write.
std::optional<SaisieEnCours> EnCours(const frmEditEntree& form, SaisieEnCours::Cible cible)
{
    if (!form.EstTouche() || (cible != SaisieEnCours::Cible::Selection && ToutEstVide(form.Valeurs())))
        return std::nullopt;
    const SaisieEntree saisie = SaisieDe(form);
    return SaisieEnCours{cible, form.IndexEntree, saisie.valeurs, saisie.textes, saisie.image};
}

/// While it lives, the end of the session finds what is being typed.
class SaisieDeclaree
{
public:
    SaisieDeclaree(QrtClass& doc, const frmEditEntree& form, SaisieEnCours::Cible cible) : m_doc(doc)
    {
        doc.Saisie = [&form, cible] { return EnCours(form, cible); };
    }
    ~SaisieDeclaree() { m_doc.Saisie = nullptr; }
    SaisieDeclaree(const SaisieDeclaree&) = delete;
    SaisieDeclaree& operator=(const SaisieDeclaree&) = delete;

private:
    QrtClass& m_doc;
};

void Executer(frmEditEntree& form, QrtClass& doc, SaisieEnCours::Cible cible)
{
    const SaisieDeclaree declaree(doc, form, cible);
    form.exec();
}

void OuvrirSur(frmEditEntree& form, const FenetreDocument& fenetre)
{
    form.CheminImages = fenetre.myqrt.TmpFolder;
    form.Table = fenetre.myqrt.MyLV;
}

/// A form that only gathers: it starts with empty rows, and there is no way to another entry.
void PreparerSaisie(frmEditEntree& form)
{
    form.Charge = true;
    form.CacherNavigation();
    form.RemplirColonnes();
}

void ChoisirSeule(FenetreDocument& fenetre, int position)
{
    MyLV& table = *fenetre.myqrt.MyLV;
    ToutDeselectionner(table);
    ListItem entree = table.ListItems(position);
    if (!entree)
        return;
    entree.SetSelected(true);
    // The focus too, so that the next command acts on the entry that is seen selected.
    table.SetSelectedItem(entree);
    fenetre.RendreVisible(position);
}

bool EditerPlusieurs(FenetreDocument& fenetre)
{
    if (!AccepterEditionMultiple())
        return false;
    QrtClass& doc = fenetre.myqrt;
    frmEditEntree form(FenetreDessous());
    OuvrirSur(form, fenetre);
    form.setWindowTitle(LangMsg(u"msg100"_s, u"Editer de MULTIPLES entrées"_s).texte);
    form.MettreCaptionAjouter(LangMsg(u"msg81"_s, u"Mettre à jour"_s).texte);
    PreparerSaisie(form);
    form.Modifie = doc.IlFautSauver;
    Executer(form, doc, SaisieEnCours::Cible::Selection);
    if (form.Valide) {
        AvancementEnFenetre avancement;
        ModifierSelection(fenetre, SaisieDe(form), avancement);
    } else {
        // The selection is lost, it is meant: the entry with the focus stays selected alone.
        ChoisirSeule(fenetre, doc.MyLV->SelectedItem().Index());
    }
    return form.Modifie;
}

bool EditerUne(FenetreDocument& fenetre, bool navigation)
{
    QrtClass& doc = fenetre.myqrt;
    const int16_t index = frmEditEntree::IndexPour(doc.MyLV->SelectedItem().Index());
    if (index == 0)
        return doc.IlFautSauver;
    frmEditEntree form(FenetreDessous());
    OuvrirSur(form, fenetre);
    form.setWindowTitle(LangMsg(u"msg80"_s, u"Editer une entrée"_s).texte);
    form.MettreCaptionAjouter(LangMsg(u"msg81"_s, u"Mettre à jour"_s).texte);
    if (!navigation)
        form.CacherNavigation();
    form.IndexEntree = index;
    form.Modifie = doc.IlFautSauver;
    // At once: the user may walk through entries for hours, and unsaved changes are looked after meanwhile.
    form.EntreeEcrite = [&doc] { doc.IlFautSauver = true; };
    form.RendreVisible = [&fenetre](int ligne) { fenetre.RendreVisible(ligne); };
    form.ChargerEntree();
    Executer(form, doc, SaisieEnCours::Cible::Entree);
    ChoisirSeule(fenetre, form.IndexEntree);
    return form.Modifie;
}

} // namespace

bool EditerEntrees(FenetreDocument& fenetre, bool multiAutorise, bool navigation)
{
    const int choisies = fenetre.myqrt.SelItemsCount();
    if (choisies == 0)
        return false;
    return choisies > 1 && multiAutorise ? EditerPlusieurs(fenetre) : EditerUne(fenetre, navigation);
}

bool AjouterEntree(FenetreDocument& fenetre)
{
    frmEditEntree form(FenetreDessous());
    OuvrirSur(form, fenetre);
    form.setWindowTitle(LangMsg(u"msg82"_s, u"Ajouter une entrée"_s).texte);
    form.MettreCaptionAjouter(LangMsg(u"msg83"_s, u"Ajouter"_s).texte);
    PreparerSaisie(form);
    // An image alone makes no entry: the form comes back as the user left it.
    do {
        form.Referme = false;
        Executer(form, fenetre.myqrt, SaisieEnCours::Cible::Ajout);
    } while (form.Valide && form.RefuserVide());
    if (form.Valide)
        InscrireEntree(fenetre, SaisieDe(form));
    return form.Valide;
}

void SupprimerEntrees(FenetreDocument& fenetre)
{
    Categorie& doc = fenetre.myqrt;
    frmSuppr form(FenetreDessous());
    // Also to false: after leaving the dialog without deleting nobody is asked about earlier changes. It is meant.
    doc.EcraserIlFautSauver(form.Lancer(doc));
    RecalculerCles(*doc.MyLV);
}

void VoirEntree(MyLV& table, int index, const QString& tmpFolder)
{
    if (!table.ListItems.Existe(index))
        return;
    frmView form(FenetreDessous());
    form.MyLV = &table;
    form.Dossier = tmpFolder;
    form.Numero = index;
    form.exec();
}
