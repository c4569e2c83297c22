#include "catalogue/texte/Categorie.h"

#include "base/DossiersTemp.h"
#include "catalogue/archive/FichierDuDossier.h"

#include <utility>

Categorie::Categorie()
{
    MyLV = &Table;
}

Categorie::~Categorie()
{
    if (m_proprietaire && !AChange() && !EnEcriture && Forcer())
        FermerDossier();
}

void Categorie::CreerDossier()
{
    TmpFolder = CreerDossierTemp();
    m_proprietaire = true;
}

void Categorie::EcraserIlFautSauver(bool resultat)
{
    ChangementsTus = ChangementsTus || (IlFautSauver && !resultat);
    IlFautSauver = resultat;
}

void Categorie::FermerDossier()
{
    if (!m_garder && !TmpFolder.isEmpty())
        SupprimerDossier(std::exchange(TmpFolder, QString()), true);
}

void Categorie::RegarderFichier()
{
    FichierVu = TraceDe(CheminReel());
}

bool Categorie::FichierEstUnAutre(const QString& chemin) const
{
    // Words leave the device out: what was seen may come from another run.
    const TraceDeFichier la = TraceDe(chemin);
    return FichierVu && la && VersMot(la) != VersMot(*FichierVu);
}

bool Categorie::Forcer()
{
    const QString fichier = std::exchange(AForcer, QString());
    const bool bon = fichier.isEmpty() || ForcerFichier(fichier);
    m_garder = m_garder || !bon;
    return bon;
}
