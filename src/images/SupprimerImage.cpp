#include "images/SupprimerImage.h"

#include "images/Bibliotheque.h"
#include "images/frmSupprImg.h"
#include "kit/FenetreDessous.h"

bool SupprimerImage(const QString& chemin, int& mode)
{
    return SupprimerImage(chemin, mode, DemanderSupprImg);
}

int DemanderSupprImg(const QString& chemin)
{
    frmSupprImg form(chemin, FenetreDessous());
    form.exec();
    return form.Resultat;
}
