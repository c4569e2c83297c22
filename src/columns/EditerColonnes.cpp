#include "columns/EditerColonnes.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/QrtClass.h"
#include "columns/ColonnePrete.h"
#include "columns/RefaireCellules.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

namespace {

constexpr float LargeurColonne = 800; // units of 1/1440 inch

/// Whether a column has the title, letter case aside.
bool TitreExiste(const QrtClass& doc, const QString& titre)
{
    const QString minuscules = titre.toLower();
    for (int i = 1; i <= doc.ColCount(); ++i) {
        if (doc.MyLV->ColumnHeaders(i).Text().toLower() == minuscules)
            return true;
    }
    return false;
}

bool RefuserSuppression()
{
    return Refuser(LangMsg(u"msg6"_s, u"Veuillez selectionner une colonne à supprimer"_s));
}

bool RefuserNouveauNom()
{
    return Refuser(LangMsg(u"msg10"_s, u"Veuillez entrer un nom"_s));
}

/// What has changed in the columns is taken up by who looks for the loan column.
void Changer(QrtClass& doc)
{
    ChercherColPrete(doc);
    doc.IlFautSauver = true;
}

void RetirerValeur(Cellules& cellules, int position)
{
    if (position == 0)
        EcrireCellule(cellules, 0, CelluleDe(cellules, 1));
    RetirerCellule(cellules, position == 0 ? 1 : position);
}

/// What exchanges the cells `choisie` and the one before it, entry after entry. One that lacks the chosen cell takes
/// the value that was read last: it is meant.
RefonteDeTable::Travail EchangeAGauche(int choisie)
{
    return [choisie, valeur = stockage::Cellule{"", 0, stockage::Codage::Utf8, true}](Cellules& cellules) mutable {
        const auto place = static_cast<size_t>(choisie);
        if (place < cellules.size() && cellules[place].existe)
            valeur = cellules[place];
        EcrireCellule(cellules, choisie, CelluleDe(cellules, choisie - 1));
        EcrireCellule(cellules, choisie - 1, valeur);
    };
}

RefonteDeTable::Travail EchangeADroite(int choisie)
{
    return [choisie](Cellules& cellules) {
        const stockage::Cellule valeur = CelluleDe(cellules, choisie);
        EcrireCellule(cellules, choisie, CelluleDe(cellules, choisie + 1));
        EcrireCellule(cellules, choisie + 1, valeur);
    };
}

/// Exchanges the titles and widths of two columns, from 0, and the sort with its marker.
void EchangerEntetes(MyLV& table, int a, int b)
{
    ColumnHeader& premiere = table.ColumnHeaders(a + 1);
    ColumnHeader& seconde = table.ColumnHeaders(b + 1);
    const QString titre = premiere.Text();
    premiere.SetText(seconde.Text());
    seconde.SetText(titre);
    const float largeur = premiere.Width();
    premiere.SetWidth(seconde.Width());
    seconde.SetWidth(largeur);
    const QString marque = premiere.Icon();
    premiere.SetIcon(seconde.Icon());
    seconde.SetIcon(marque);
    table.SuivreColonnes([a, b](int colonne) { return colonne == a ? b : colonne == b ? a : colonne; });
}

/// The number of the last line that reads like that, one behind the others, which reads empty, included; -1 for none.
int DerniereLigne(const QrtClass& doc, const QString& texte)
{
    return static_cast<int>((LignesDeDependance(doc) + QStringList{QString()}).lastIndexOf(texte));
}

} // namespace

bool AjouterColonne(QrtClass& doc, const QString& titre)
{
    if (titre.isEmpty())
        return Refuser(LangMsg(u"msg4"_s, u"Veuillez entrer un nom"_s));
    if (TitreExiste(doc, titre))
        return Refuser(LangMsg(u"msg5"_s, u"Une colonne porte déjà le même nom veuillez en changer"_s));
    doc.MyLV->ColumnHeaders.Add(0, titre).SetWidth(LargeurColonne);
    Changer(doc);
    return true;
}

bool PeutSupprimer(const QrtClass& doc, const ChoixDeColonne& choix)
{
    if (choix.texte.isEmpty())
        return RefuserSuppression();
    if (choix.texte == TitrePrete())
        return Refuser(LangMsg(u"msg7"_s, u"Cette colonne ne peut pas etre supprimée"_s));
    return (choix.position >= 0 && TitreExiste(doc, choix.texte)) || RefuserSuppression();
}

bool AccepterSuppression()
{
    const Message question = LangMsg(
        u"msg8"_s,
        u"Etes vous sûr de vouloir supprimer la colonne sélectionnée et toutes les information qu'elle contient?"_s);
    return AfficherMsg(question, MsgOuiNon, QString()) == RepOui;
}

void SupprimerColonne(QrtClass& doc, int position, Avancement& avancement)
{
    RefaireCellules(
        doc, doc.MyLV->CodageSource(),
        [position] { return [position](Cellules& cellules) { RetirerValeur(cellules, position); }; }, avancement);
    doc.MyLV->ColumnHeaders.Remove(position + 1);
    doc.MyLV->SuivreColonnes(
        [position](int colonne) { return colonne == position ? -1 : colonne - (colonne > position ? 1 : 0); });
    Changer(doc);
}

bool RenommerColonne(QrtClass& doc, const ChoixDeColonne& choix, const QString& titre, const QString& champAjout)
{
    if (choix.texte == TitrePrete())
        return Refuser(LangMsg(u"msg9"_s, u"Cette colonne ne peut pas etre renommée"_s));
    if (titre.isEmpty())
        return RefuserNouveauNom();
    // An empty choice passes here: the line behind the last one reads empty.
    if (!choix.texte.isEmpty() && !TitreExiste(doc, choix.texte))
        return RefuserNouveauNom();
    // The field of the column to add, and not the new title: it is meant.
    if (TitreExiste(doc, champAjout))
        return Refuser(LangMsg(u"msg11"_s, u"Une colonne porte déjà le même nom veuillez en changer"_s));
    if (choix.position < 0)
        return Refuser(LangMsg(u"msg19"_s, u"Veuillez sélectionner une colonne"_s));
    doc.MyLV->ColumnHeaders(choix.position + 1).SetText(titre);
    Changer(doc);
    return true;
}

QStringList LignesDeDependance(const QrtClass& doc)
{
    return QStringList{u"- pas dependant -"_s} + TitresDesColonnes(doc);
}

QString LigneDependante(const QrtClass& doc)
{
    return LignesDeDependance(doc).value(doc.dependantcol);
}

bool DeplacerColonne(QrtClass& doc, int position, Sens sens, const QString& dependante, Avancement& avancement)
{
    const bool aGauche = sens == Sens::Gauche;
    const int voisine = aGauche ? position - 1 : position + 1;
    if (position < 0 || voisine < 0 || voisine >= doc.ColCount())
        return false;
    RefaireCellules(
        doc, doc.MyLV->CodageSource(),
        [position, aGauche] { return aGauche ? EchangeAGauche(position) : EchangeADroite(position); }, avancement);
    EchangerEntetes(*doc.MyLV, position, voisine);
    Changer(doc);
    if (doc.dependantcol != 0)
        doc.dependantcol = DerniereLigne(doc, dependante);
    return true;
}

void ChoisirDependante(QrtClass& doc, int numero)
{
    doc.dependantcol = numero;
    doc.IlFautSauver = true;
}
