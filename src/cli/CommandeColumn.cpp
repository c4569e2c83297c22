#include "cli/CommandeColumn.h"

#include "base/SurUneLigne.h"
#include "catalogue/texte/Categorie.h"
#include "cli/ListeDeNombres.h"
#include "cli/Modification.h"
#include "columns/EditerColonnes.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// What stands behind IN and OUT: the number of a column, 0 only where `zero` says so.
std::optional<int> LireColonne(const LigneDeCommande& ligne, int argument, const QString& commande, bool zero = false)
{
    const std::optional<int> numero = LireNombre(ligne.arguments[argument]);
    if (numero && (zero || *numero > 0))
        return numero;
    RefuserUsage(u"ce n'est pas un numéro de colonne : "_s + ligne.arguments[argument], commande);
    return std::nullopt;
}

bool ColonneExiste(const QrtClass& doc, int numero, const QString& commande)
{
    if (doc.MyLV->ColumnHeaders.Existe(numero))
        return true;
    RefuserUsage(u"il n'y a pas de telle colonne : %1"_s.arg(numero), commande);
    return false;
}

/// A title stands in one line of the file, and "|" ends it there.
bool TitrePossible(const QString& titre, const QString& commande)
{
    if (SurUneLigne(titre) == titre && !titre.contains(u'|'))
        return true;
    RefuserUsage(u"un titre ne contient ni « | » ni saut de ligne"_s, commande);
    return false;
}

Statut StatutDe(bool fait)
{
    return fait ? Fait : Echec;
}

Statut ExecuterAdd(const LigneDeCommande& ligne)
{
    const QString& titre = ligne.arguments[2];
    if (!TitrePossible(titre, u"column add"_s))
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) { return StatutDe(AjouterColonne(doc, titre)); });
}

Statut ExecuterDependant(const LigneDeCommande& ligne)
{
    const QString commande = u"column dependant"_s;
    const std::optional<int> numero = LireColonne(ligne, 2, commande, true);
    if (!numero)
        return MauvaisUsage;
    return ModifierCatalogue(ligne, [&](Categorie& doc) {
        if (*numero != 0 && !ColonneExiste(doc, *numero, commande))
            return MauvaisUsage;
        ChoisirDependante(doc, *numero);
        return Fait;
    });
}

} // namespace

QList<Commande> CommandesColumn(const QList<OptionConnue>& options)
{
    const QList<OptionConnue> toutes = OptionsDeModification() + options;
    return {
        {u"column add"_s, u"ENTREE SORTIE TITRE"_s, 3, u"ajoute une colonne à la fin"_s, toutes, ExecuterAdd},
        {u"column dependant"_s, u"ENTREE SORTIE N"_s, 3,
         u"fait de la colonne N la colonne dépendante ; 0 : il n'y en a pas"_s, toutes, ExecuterDependant},
    };
}
