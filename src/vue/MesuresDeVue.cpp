#include "vue/MesuresDeVue.h"

#include "vue/DelegueDeListe.h"
#include "vue/ModeleTable.h"
#include "vue/PlusLarge.h"
#include "vue/VueDesLignes.h"

namespace {

void VoirTable(PlusLarge& plusLarge, const MyLV& table, int colonnes)
{
    for (int ligne = 1; ligne <= table.ListItems.Count(); ++ligne) {
        const stockage::EntreeStockee entree = table.StockageDe(ligne);
        for (int colonne = 1; colonne <= colonnes; ++colonne)
            plusLarge.Voir(colonne, entree.Champ(colonne - 1).Texte());
    }
}

void VoirListe(PlusLarge& plusLarge, const QAbstractItemModel& liste, int colonnes)
{
    for (int ligne = 1; ligne <= liste.rowCount(); ++ligne) {
        for (int colonne = 1; colonne <= colonnes; ++colonne)
            plusLarge.Voir(colonne,
                           DelegueDeListe::PartieVisible(liste.index(ligne - 1, colonne - 1).data().toString()));
    }
}

} // namespace

MesuresDeVue::MesuresDeVue(const VueDesLignes& vue, const QWidget& fenetre)
    : m_vue(vue), m_cellules(vue.fontMetrics()), m_titres(fenetre.fontMetrics())
{
}

std::vector<float> MesuresDeVue::LargeursDuContenu() const
{
    const int colonnes = m_vue.Colonnes().Count();
    PlusLarge plusLarge(m_cellules, colonnes);
    if (m_vue.MontreTable())
        VoirTable(plusLarge, m_vue.Modele().Table(), colonnes);
    else
        VoirListe(plusLarge, *m_vue.model(), colonnes);
    std::vector<float> largeurs;
    largeurs.reserve(static_cast<size_t>(colonnes));
    for (int colonne = 1; colonne <= colonnes; ++colonne) {
        // A pixel more than the text takes: a width is rounded on its way to the screen.
        const int cellules = plusLarge.Largeur(colonne) + m_vue.AutourDuTexte(colonne) + 1;
        const int titre = m_cellules.horizontalAdvance(m_vue.Colonnes()(colonne).Text());
        largeurs.push_back(static_cast<float>(m_vue.UnitesDe(qMax(cellules, titre))));
    }
    return largeurs;
}

float MesuresDeVue::LargeurDuTitre(const QString& titre) const
{
    return static_cast<float>(m_vue.UnitesDe(m_titres.horizontalAdvance(titre)));
}
