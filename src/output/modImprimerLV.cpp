#include "output/modImprimerLV.h"

bool ImprimerListe(MyLV&, const QString&, const QString&)
{
    return false;
}
