#include "catalogue/texte/TriDeTable.h"

#include "catalogue/texte/QrtClass.h"

using namespace Qt::StringLiterals;

namespace {

enum Sens { Croissant = 0, Decroissant = 1 };

/// The order that a click on column `cle` leads to.
int SensApresClic(const MyLV& table, int cle)
{
    return cle == table.SortKey() && table.SortOrder() == Croissant ? Decroissant : Croissant;
}

} // namespace

QString MarqueDeTri(bool descendant)
{
    return descendant ? u"up"_s : u"down"_s;
}

bool TrierParColonne(MyLV& table, int colonne)
{
    if (!table.ColumnHeaders.Existe(colonne))
        return false;
    const int sens = SensApresClic(table, colonne - 1);
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        table.ColumnHeaders(i).SetIcon(i == colonne ? MarqueDeTri(sens == Decroissant) : QString());
    // Not sorted while it is told how, so that the entries are put in order once.
    table.SetSorted(false);
    table.SetSortOrder(sens);
    table.SetSortKey(colonne - 1);
    table.SetSorted(true);
    return true;
}

bool TrierParColonne(QrtClass& doc, int colonne)
{
    const bool trie = TrierParColonne(*doc.MyLV, colonne);
    doc.IlFautSauver = doc.IlFautSauver || trie;
    return trie;
}

void Retrier(MyLV& table)
{
    table.SetSorted(false);
    table.SetSorted(true);
}
