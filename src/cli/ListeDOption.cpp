#include "cli/ListeDOption.h"

#include "catalogue/texte/Categorie.h"
#include "cli/Commandes.h"

using namespace Qt::StringLiterals;

bool LireListe(const LigneDeCommande& ligne, const QString& option, const QString& commande,
               std::optional<ListeDeNombres>& liste)
{
    if (!ligne.A(option))
        return true;
    liste = ListeDeNombres::Lire(ligne.Valeur(option));
    if (!liste)
        RefuserUsage(u"ce n'est pas une liste de nombres : "_s + ligne.Valeur(option), commande);
    return liste.has_value();
}

bool SelectionnerEntrees(const LigneDeCommande& ligne, const ListeDeNombres& liste, const QString& commande,
                         Categorie& doc)
{
    const std::optional<std::vector<bool>> entrees = liste.Parmi(doc.ItemsCount());
    if (!entrees) {
        RefuserUsage(u"il n'y a pas de telle entrée : "_s + ligne.Valeur(u"select"_s), commande);
        return false;
    }
    for (int i = 1; i <= doc.ItemsCount(); ++i)
        doc.Table.Selectionner(i, i, (*entrees)[static_cast<size_t>(i - 1)]);
    return true;
}
