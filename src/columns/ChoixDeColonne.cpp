#include "columns/ChoixDeColonne.h"

#include "base/AfficherMsg.h"
#include "catalogue/texte/QrtClass.h"

ChoixDeColonne ChoixDeColonne::Numero(const QrtClass& doc, int numero)
{
    return {doc.MyLV->ColumnHeaders(numero).Text(), numero - 1};
}

bool ChoixDeColonne::NommeUneColonne(const QrtClass& doc) const
{
    for (int i = 1; i <= doc.ColCount(); ++i) {
        if (doc.MyLV->ColumnHeaders(i).Text() == texte)
            return true;
    }
    return false;
}

bool Refuser(const Message& message)
{
    AfficherMsg(message, MsgOk, QString());
    return false;
}
