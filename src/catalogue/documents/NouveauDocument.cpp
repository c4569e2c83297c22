#include "catalogue/documents/NouveauDocument.h"

#include "catalogue/documents/Cadre.h"
#include "kit/ManqueDeMemoire.h"

FenetreDocument* NouveauDocument(Cadre& cadre, const QString& titre,
                                 const std::function<bool(FenetreDocument&)>& remplir)
{
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    fenetre.myqrt.CreerDossier();
    fenetre.SetCaption(titre);
    cadre.AjouterOnglet(fenetre);
    if (AvecMemoire([&] { return remplir(fenetre); }, false))
        return &fenetre;
    fenetre.Decharger();
    return nullptr;
}
