#include "vue/mAjustColListView.h"

#include "catalogue/table/MyLV.h"

namespace {

// Units of 1/1440 inch.
constexpr float AutourDuTitre = 550; // the sort marker, and air
constexpr double BarreEtBords = 340;

} // namespace

void AjusterColonnes(ColumnHeaders& colonnes, const MesuresDeColonnes& mesures)
{
    const std::vector<float> contenus = mesures.LargeursDuContenu();
    for (int i = 1; i <= colonnes.Count(); ++i) {
        ColumnHeader& colonne = colonnes(i);
        const float contenu = contenus[static_cast<size_t>(i - 1)];
        const float titre = mesures.LargeurDuTitre(colonne.Text()) + AutourDuTitre;
        colonne.SetWidth(titre > contenu ? titre : contenu);
    }
}

void RedimensionnerColonnes(ColumnHeaders& colonnes, int lignes, double largeur)
{
    if (lignes == 0)
        return;
    float somme = 0;
    for (int i = 1; i <= colonnes.Count(); ++i)
        somme += colonnes(i).Width();
    if (somme <= 0 || largeur <= BarreEtBords)
        return;
    const double facteur = (largeur - BarreEtBords) / somme;
    for (int i = 1; i <= colonnes.Count(); ++i) {
        ColumnHeader& colonne = colonnes(i);
        colonne.SetWidth(static_cast<float>(colonne.Width() * facteur));
    }
}
