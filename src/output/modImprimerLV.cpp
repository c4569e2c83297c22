#include "output/modImprimerLV.h"

bool ImprimerListe(MyLV& /*table*/, const QString& /*folder*/, const QString& /*title*/)
{
    return false;
}
