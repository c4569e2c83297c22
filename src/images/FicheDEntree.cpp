#include "images/FicheDEntree.h"

#include "catalogue/table/MyLV.h"

using namespace Qt::StringLiterals;

QString FicheDEntree(const MyLV& table, int numero)
{
    const ListItemLu entree = table.ListItems(numero);
    if (!entree)
        return {};
    QString fiche;
    for (int i = 1; i < table.ColumnHeaders.Count(); ++i)
        fiche += u'<' + table.ColumnHeaders(i + 1).Text() + u">\n"_s + entree.SubItems(i) + u"\n\n"_s;
    return fiche;
}
