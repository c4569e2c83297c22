#include "catalogue/Cadre.h"

FenetreDocument* FenetreActive()
{
    const auto* cadre = dynamic_cast<const Cadre*>(FenetresInstallees());
    return cadre ? cadre->FenetreActive() : nullptr;
}
