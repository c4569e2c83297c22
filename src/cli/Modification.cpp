#include "cli/Modification.h"

#include "cli/Catalogue.h"
#include "cli/Sortie.h"

using namespace Qt::StringLiterals;

QList<OptionConnue> OptionsDeModification()
{
    return OptionsDeSortie(u"celui de l'entrée"_s);
}

Statut ModifierCatalogue(const LigneDeCommande& ligne, const std::function<Statut(Categorie&)>& changer)
{
    const QString& sortie = ligne.arguments[1];
    if (!SortieLibre(ligne, sortie))
        return Echec;
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    if (!catalogue)
        return Echec;
    const FormeFichier forme = FormeDemandee(ligne, static_cast<FormeFichier>(catalogue->type));
    const Statut statut = changer(catalogue->doc);
    return statut == Fait ? EcrireSortie(ligne, catalogue->doc, sortie, forme) : statut;
}
