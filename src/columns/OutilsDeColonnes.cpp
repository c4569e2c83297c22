#include "columns/OutilsDeColonnes.h"

#include "catalogue/documents/FenetreDocument.h"
#include "columns/frmEditerColonnes.h"
#include "columns/frmFusionner.h"
#include "columns/frmSeparerEn2.h"
#include "kit/FenetreDessous.h"

namespace {

void Ouvrir(QDialog& form, FenetreDocument& fenetre)
{
    form.exec();
    fenetre.RedrawAll();
}

} // namespace

void ModifierCategorie(FenetreDocument& fenetre)
{
    frmEditerColonnes form(fenetre.myqrt, FenetreDessous());
    Ouvrir(form, fenetre);
}

void FusionnerColonnes(FenetreDocument& fenetre)
{
    frmFusionner form(fenetre.myqrt, FenetreDessous());
    Ouvrir(form, fenetre);
}

void SeparerColonne(FenetreDocument& fenetre)
{
    frmSeparerEn2 form(fenetre.myqrt, FenetreDessous());
    Ouvrir(form, fenetre);
}

void DupliquerColonne(FenetreDocument& fenetre)
{
    frmSeparerEn2 form(fenetre.myqrt, FenetreDessous());
    form.ServirADupliquer();
    Ouvrir(form, fenetre);
}
