#include "catalogue/documents/Cadre.h"

FenetreDocument* FenetreActive()
{
    const auto* cadre = dynamic_cast<const Cadre*>(FenetresInstallees());
    return cadre ? cadre->FenetreActive() : nullptr;
}
