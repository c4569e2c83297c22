#include "cli/CommandeStats.h"

#include "cli/Catalogue.h"
#include "cli/Console.h"
#include "output/Statistiques.h"

Statut ExecuterStats(const LigneDeCommande& ligne)
{
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    if (!catalogue)
        return Echec;
    SortieStandard sortie;
    sortie.Ecrire(RapportDesPrets(catalogue->doc).toUtf8());
    return FinirSortie(sortie);
}
