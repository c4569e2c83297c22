#include "catalogue/SecoursDesDocuments.h"

#include "base/Const_Vrac.h"
#include "catalogue/Cadre.h"
#include "catalogue/FichierQrt.h"
#include "catalogue/Sauver.h"

#include <algorithm>
#include <utility>

bool AvancerLesSecours(const Cadre& cadre, const MomentDeSecours& moment)
{
    bool encore = false;
    for (FenetreDocument* fenetre : cadre.Documents())
        encore = fenetre->Secours.Avancer(fenetre->myqrt, fenetre->Caption(), moment) || encore;
    return encore;
}

void LaisserAuSecours(const Cadre& cadre)
{
    const auto fenetres = cadre.Documents();
    for (FenetreDocument* fenetre : fenetres)
        fenetre->Secours.EcrireMaintenant(fenetre->myqrt, fenetre->Caption());
    // Then what may take its time: a folder goes once what was saved is on the disk.
    for (FenetreDocument* fenetre : fenetres) {
        QrtClass& doc = fenetre->myqrt;
        if (!doc.IlFautSauver && !doc.EnEcriture && ForcerArchive(doc) && !doc.DossierAGarder)
            SupprimerDossier(std::exchange(doc.TmpFolder, QString()), true);
    }
}

bool PeutFinirLaSession(const Cadre& cadre, bool questions)
{
    const auto fenetres = cadre.Documents();
    if (!questions) {
        for (FenetreDocument* fenetre : fenetres)
            fenetre->Secours.EcrireMaintenant(fenetre->myqrt, fenetre->Caption());
        return true;
    }
    if (!std::ranges::all_of(fenetres, [](auto* fenetre) { return PeutFermer(fenetre->myqrt); }))
        return false;
    for (FenetreDocument* fenetre : fenetres)
        fenetre->Secours.Abandonne = std::exchange(fenetre->myqrt.IlFautSauver, false);
    return true;
}

void ReprendreLaSession(const Cadre& cadre)
{
    for (FenetreDocument* fenetre : cadre.Documents()) {
        if (std::exchange(fenetre->Secours.Abandonne, false))
            fenetre->myqrt.IlFautSauver = true;
    }
}
