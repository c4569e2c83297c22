#include "catalogue/Dependance.h"

#include "catalogue/QrtClass.h"

bool EstDependante(const QrtClass& doc)
{
    return doc.MyLV->ColumnHeaders.Existe(doc.dependantcol);
}

QString ValeurDependante(const QrtClass& doc, const ListItem& entree)
{
    return entree.Valeur(doc.dependantcol);
}
