#include "catalogue/texte/Dependance.h"

#include "catalogue/texte/QrtClass.h"

bool EstDependante(const QrtClass& doc)
{
    return doc.MyLV->ColumnHeaders.Existe(doc.dependantcol);
}

QString ValeurDependante(const QrtClass& doc, const ListItemLu& entree)
{
    return entree.Valeur(doc.dependantcol);
}
