#include "images/ChoisirImage.h"

#include "images/frmChangeImage.h"
#include "kit/FenetreDessous.h"

QString ChoisirImage(const QString& dossier, const QString& nomActuel)
{
    frmChangeImage form(FenetreDessous());
    form.Dossier = dossier;
    form.Remplir(nomActuel);
    form.exec();
    return form.Resultat;
}
