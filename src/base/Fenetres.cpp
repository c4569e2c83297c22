#include "base/Fenetres.h"

#include <algorithm>
#include <utility>

namespace {
FenetresOuvertes* s_fenetres = nullptr;
}

FenetresOuvertes* InstallerFenetres(FenetresOuvertes* fenetres)
{
    return std::exchange(s_fenetres, fenetres);
}

FenetresOuvertes* FenetresInstallees()
{
    return s_fenetres;
}

void ToutFermer()
{
    if (!s_fenetres)
        return;
    for (FenetreOuverte* fenetre : s_fenetres->Fenetres()) {
        // Questions let events run: a window of the list may be gone by now.
        const std::vector<FenetreOuverte*> restantes = s_fenetres->Fenetres();
        if (std::find(restantes.begin(), restantes.end(), fenetre) != restantes.end())
            fenetre->Decharger();
    }
}
