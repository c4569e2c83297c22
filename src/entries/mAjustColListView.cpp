#include "entries/mAjustColListView.h"

#include "catalogue/MyLV.h"

namespace {

// Units of 1/1440 inch.
constexpr float AutourDuTitre = 550; // the sort marker, and air
constexpr double BarreEtBords = 340;

} // namespace

void AjusterColonnes(MyLV& table, const MesuresDeColonnes& mesures)
{
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i) {
        ColumnHeader& colonne = table.ColumnHeaders(i);
        const float contenu = mesures.LargeurDuContenu(i);
        const float titre = mesures.LargeurDuTitre(colonne.Text()) + AutourDuTitre;
        colonne.SetWidth(titre > contenu ? titre : contenu);
    }
}

void RedimensionnerColonnes(MyLV& table, double largeur)
{
    if (table.ListItems.Count() == 0)
        return;
    float ligne = 0;
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i)
        ligne += table.ColumnHeaders(i).Width();
    if (ligne <= 0 || largeur <= BarreEtBords)
        return;
    const double facteur = (largeur - BarreEtBords) / ligne;
    for (int i = 1; i <= table.ColumnHeaders.Count(); ++i) {
        ColumnHeader& colonne = table.ColumnHeaders(i);
        colonne.SetWidth(static_cast<float>(colonne.Width() * facteur));
    }
}
