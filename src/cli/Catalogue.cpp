#include "cli/Catalogue.h"

#include "base/AfficherMsg.h"
#include "base/DossiersDeCommande.h"
#include "base/DossiersTemp.h"
#include "catalogue/documents/ChargerCatalogue.h"
#include "extensions/langue/modLang.h"

CatalogueOuvert::CatalogueOuvert()
    : m_base([this] {
          // Both folders in one step: once an interrupt has taken them away, nothing here makes them anew.
          TempFolder = CreerDossierDeCommande();
          const QString base = TempFolder;
          doc.CreerDossier();
          return base;
      })
{
}

std::unique_ptr<CatalogueOuvert> CatalogueOuvert::Ouvrir(const QString& chemin, Etendue etendue)
{
    const std::optional<FormeFichier> forme = FormeDuFichier(chemin);
    if (!forme)
        return nullptr;
    std::unique_ptr<CatalogueOuvert> catalogue(new CatalogueOuvert);
    catalogue->type = *forme;
    // The reader refuses by message and by an empty table; a table that was read has a loan column at least.
    if (!ChargerCatalogue(catalogue->doc, chemin, *forme, etendue) || catalogue->doc.ColCount() == 0)
        return nullptr;
    return catalogue;
}
