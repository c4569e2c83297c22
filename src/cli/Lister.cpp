#include "cli/Lister.h"

#include "cli/Console.h"
#include "cli/Json.h"

#include <algorithm>

namespace {

/// `commeLaSource`: slices have the fields of the table, so that a regular one is a line but for what parts them.
void AjouterLigne(QByteArray& lignes, const stockage::EntreeStockee& vue, int colonnes, bool commeLaSource)
{
    const qsizetype debut = lignes.size();
    if (commeLaSource && vue.EstReguliere()) {
        vue.ToutesEnUne().AjouterEnUtf8(lignes);
        std::replace(lignes.begin() + debut, lignes.end(), '|', '\t');
    } else {
        for (int i = 0; i < colonnes; ++i) {
            vue.Champ(i).AjouterEnUtf8(lignes);
            lignes.append('\t');
        }
        vue.Image().AjouterEnUtf8(lignes);
    }
    lignes.append('\n');
}

/// `tampon` is room for one value, made once.
void EcrireCellule(Json& json, const stockage::Cellule& cellule, QByteArray& tampon)
{
    tampon.resize(0);
    cellule.AjouterEnUtf8(tampon);
    json.TexteUtf8(tampon);
}

} // namespace

void ListerEnTexte(const MyLV& table, SortieStandard& sortie)
{
    const int colonnes = table.ColumnHeaders.Count();
    for (int i = 1; i <= colonnes; ++i)
        sortie.Ecrire(table.ColumnHeaders(i).Text().toUtf8() + '\t');
    sortie.Ecrire("Image\n");
    const bool commeLaSource = colonnes == table.ColonnesSource();
    QByteArray lignes;
    for (int i = 1; i <= table.ListItems.Count() && sortie.EstOuverte(); ++i) {
        AjouterLigne(lignes, table.StockageDe(i), colonnes, commeLaSource);
        if (lignes.size() >= TailleMorceau || i == table.ListItems.Count()) {
            sortie.Ecrire(lignes);
            lignes.resize(0);
        }
    }
}

void EcrireEntree(Json& json, const MyLV& table, int place, QByteArray& tampon)
{
    const ListItemLu entree = table.ListItems(place);
    json.Debut('{').Cle("key").Texte(entree.Key()).Cle("values").Debut('[');
    const stockage::EntreeStockee vue = table.StockageDe(place);
    const int colonnes = table.ColumnHeaders.Count();
    for (int i = 0; i < colonnes; ++i)
        EcrireCellule(json, vue.Champ(i), tampon);
    json.Fin(']').Cle("image");
    EcrireCellule(json, vue.Image(), tampon);
    json.Cle("icon").Texte(entree.SmallIcon());
}
