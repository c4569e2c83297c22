#include "catalogue/TriDeTable.h"

#include "catalogue/QrtClass.h"

using namespace Qt::StringLiterals;

namespace {

enum Sens { Croissant = 0, Decroissant = 1 };

struct Tri
{
    int sens;
    QString marque;
};

/// Turning round to ascending shows the marker "down", as a first click does: the marker says where the next click
/// leads.
Tri ApresClic(const MyLV& table, int cle)
{
    if (cle == table.SortKey() && table.SortOrder() == Croissant)
        return {Decroissant, u"up"_s};
    return {Croissant, u"down"_s};
}

} // namespace

bool TrierParColonne(QrtClass& doc, int colonne)
{
    MyLV& table = *doc.MyLV;
    if (!table.ColumnHeaders.Existe(colonne))
        return false;
    const Tri tri = ApresClic(table, colonne - 1);
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        table.ColumnHeaders(i).SetIcon(i == colonne ? tri.marque : QString());
    // Not sorted while it is told how, so that the entries are put in order once.
    table.SetSorted(false);
    table.SetSortOrder(tri.sens);
    table.SetSortKey(colonne - 1);
    table.SetSorted(true);
    doc.IlFautSauver = true;
    return true;
}

void Retrier(MyLV& table)
{
    table.SetSorted(false);
    table.SetSorted(true);
}
