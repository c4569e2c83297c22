#include "catalogue/documents/Cadre.h"

#include <algorithm>
#include <utility>

namespace {
Cadre* s_cadre = nullptr;
}

Cadre* InstallerCadre(Cadre* cadre)
{
    return std::exchange(s_cadre, cadre);
}

FenetreDocument* FenetreActive()
{
    return s_cadre ? s_cadre->FenetreActive() : nullptr;
}

void ToutFermer()
{
    if (!s_cadre)
        return;
    for (FenetreDocument* fenetre : s_cadre->Documents()) {
        // Questions let events run: a window of the list may be gone by now.
        const std::vector<FenetreDocument*> restantes = s_cadre->Documents();
        if (std::ranges::find(restantes, fenetre) != restantes.end())
            fenetre->Decharger();
    }
}
