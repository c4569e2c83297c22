#include "catalogue/texte/QrtClass.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"

QrtClass::QrtClass() : m_zelvaneIni(DossierProgramme() + QStringLiteral("Zelvane.ini")) {}

void QrtClass::SetCheminReel(const QString& chemin)
{
    m_cheminReel = chemin;
    m_filename = NomDeFichier(chemin);
}

bool QrtClass::SetNbSauv(const QString& texte)
{
    const std::optional<int16_t> nombre = VersEntier16(texte);
    if (!nombre)
        return false;
    m_nbSauv = *nombre;
    return true;
}

void QrtClass::ClearLV()
{
    if (!MyLV)
        return;
    MyLV->ListItems.Clear();
    MyLV->ColumnHeaders.Clear();
}
