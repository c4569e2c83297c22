#include "entries/NouvelleCategorie.h"

#include "entries/CreerCategorie.h"
#include "entries/frmAddCategorie2.h"
#include "kit/FenetreDessous.h"

void NouvelleCategorie(Cadre& cadre)
{
    NouveauQrt(cadre);
}

void NouveauQrt(Cadre& cadre)
{
    frmAddCategorie2 form(FenetreDessous());
    if (form.exec() == QDialog::Accepted)
        CreerCategorie(cadre, form.Colonnes.Titres(), form.Colonnes.Dependante());
}
