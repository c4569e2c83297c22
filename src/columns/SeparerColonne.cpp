#include "columns/SeparerColonne.h"

#include "catalogue/texte/QrtClass.h"
#include "columns/RefaireCellules.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;
using stockage::Cellule;

namespace {

bool RefuserSource()
{
    return Refuser(LangMsg(u"msg19"_s, u"Veuillez sélectionner une colonne"_s));
}

/// The new column stands to the right of the one at `position`, as wide as that is now.
void InsererColonne(QrtClass& doc, int position, const QString& titre)
{
    MyLV& table = *doc.MyLV;
    const float largeur = table.ColumnHeaders(position + 1).Width();
    table.ColumnHeaders.Add(position + 2, titre).SetWidth(largeur);
    table.SuivreColonnes([position](int colonne) { return colonne + (colonne > position ? 1 : 0); });
    doc.IlFautSauver = true;
}

/// Cuts the value in two; all of it stays in front where the separator does not occur.
void SeparerCellule(Cellules& cellules, int position, const TexteTape& separateur)
{
    const Cellule valeur = CelluleDe(cellules, position);
    const QByteArray* octets = separateur.Octets(valeur.codage);
    const qsizetype coupe = octets ? valeur.octets().indexOf(*octets) : -1;
    const auto avant = coupe < 0 ? valeur.taille : static_cast<uint32_t>(coupe);
    const auto reste = coupe < 0 ? valeur.taille : static_cast<uint32_t>(coupe + octets->size());
    EcrireCellule(cellules, position, {valeur.debut, avant, valeur.codage, true});
    InsererCellule(cellules, position + 1, {valeur.debut + reste, valeur.taille - reste, valeur.codage, true});
}

} // namespace

bool PeutSeparer(const QrtClass& doc, const ChoixDeColonne& source, const QString& titre)
{
    if (source.texte.isEmpty())
        return RefuserSource();
    if (!source.NommeUneColonne(doc))
        return Refuser(LangMsg(u"msg20"_s, u"Veuillez sélectionner une colonne existante"_s));
    if (titre.isEmpty())
        return Refuser(LangMsg(u"msg21"_s, u"Veuillez taper un nom pour la nouvelle colonne"_s));
    return source.position >= 0 || RefuserSource();
}

bool SeparateurDonne(const QString& separateur)
{
    return !separateur.isEmpty() ||
           Refuser(LangMsg(u"msg22"_s, u"Veuillez taper quelquechose dans le champ Séparateur"_s));
}

void Separer(QrtClass& doc, int position, const QString& titre, const QString& separateur, Avancement& avancement)
{
    const TexteTape coupe(separateur);
    RefaireCellules(
        doc, doc.MyLV->CodageSource(),
        [&] { return [&coupe, position](Cellules& cellules) { SeparerCellule(cellules, position, coupe); }; },
        avancement);
    ColumnHeader& source = doc.MyLV->ColumnHeaders(position + 1);
    source.SetWidth(source.Width() / 2);
    InsererColonne(doc, position, titre);
}

void Dupliquer(QrtClass& doc, int position, const QString& titre, Avancement& avancement)
{
    RefaireCellules(
        doc, doc.MyLV->CodageSource(),
        [position] {
            return [position](Cellules& cellules) {
                InsererCellule(cellules, position + 1, CelluleDe(cellules, position));
            };
        },
        avancement);
    InsererColonne(doc, position, titre);
}
