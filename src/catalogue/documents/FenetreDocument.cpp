#include "catalogue/documents/FenetreDocument.h"

#include "platform/Plateforme.h"

FenetreDocument::~FenetreDocument()
{
    if (Secours.TientSaisie())
        myqrt.GarderDossier();
}

void FenetreDocument::FermerDossier()
{
    // Where IlFautSauver is up the user was asked, and has given the changes up.
    const bool tus = myqrt.SeTait();
    if (tus)
        Secours.EcrireMaintenant(myqrt, Caption());
    if (tus || Secours.TientSaisie())
        myqrt.GarderDossier();
    myqrt.FermerDossier();
}

QString NouveauTag()
{
    constexpr double Etendue = 500;
    const QTime heure = plateforme().horloge->Maintenant().time();
    const double depuisMinuit = heure.msecsSinceStartOfDay() / 1000.0;
    return u'a' + QString::number(static_cast<int>(depuisMinuit + Etendue * plateforme().hasard->Tirer()));
}
