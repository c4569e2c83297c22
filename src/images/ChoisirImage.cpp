#include "images/ChoisirImage.h"

#include "extensions/FenetreDessous.h"
#include "images/frmChangeImage.h"

QString ChoisirImage(const QString& dossier, const QString& nomActuel)
{
    frmChangeImage form(FenetreDessous());
    form.Dossier = dossier;
    form.Remplir(nomActuel);
    form.exec();
    return form.Resultat;
}
