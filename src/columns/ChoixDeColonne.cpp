#include "columns/ChoixDeColonne.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"

ChoixDeColonne ChoixDeColonne::Numero(const QrtClass& doc, int numero)
{
    return {doc.MyLV->ColumnHeaders(numero).Text(), numero - 1};
}

bool ChoixDeColonne::NommeUneColonne(const QrtClass& doc) const
{
    return TitresDesColonnes(doc).contains(texte);
}

QStringList TitresDesColonnes(const QrtClass& doc)
{
    QStringList titres;
    titres.reserve(doc.ColCount());
    for (int i = 1; i <= doc.ColCount(); ++i)
        titres.append(doc.MyLV->ColumnHeaders(i).Text());
    return titres;
}

bool Refuser(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
    return false;
}
