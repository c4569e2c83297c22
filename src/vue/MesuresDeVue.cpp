#include "vue/MesuresDeVue.h"

#include "vue/DelegueEntrees.h"
#include "vue/ModeleTable.h"
#include "vue/PlusLarge.h"
#include "vue/VueTable.h"

MesuresDeVue::MesuresDeVue(const VueTable& vue, const QWidget& fenetre)
    : m_vue(vue), m_cellules(vue.fontMetrics()), m_titres(fenetre.fontMetrics())
{
}

std::vector<float> MesuresDeVue::LargeursDuContenu() const
{
    const MyLV& table = m_vue.Modele().Table();
    const int colonnes = table.ColumnHeaders.Count();
    PlusLarge plusLarge(m_cellules, colonnes);
    for (int ligne = 1; ligne <= table.ListItems.Count(); ++ligne) {
        const stockage::Vue entree = table.VueEntree(ligne);
        for (int colonne = 1; colonne <= colonnes; ++colonne)
            plusLarge.Voir(colonne, entree.Champ(colonne - 1).Texte());
    }
    std::vector<float> largeurs;
    largeurs.reserve(static_cast<size_t>(colonnes));
    for (int colonne = 1; colonne <= colonnes; ++colonne) {
        // A pixel more than the text takes: a width is rounded on its way to the screen.
        const int cellules = plusLarge.Largeur(colonne) + DelegueEntrees::AutourDuTexte(colonne) + 1;
        const int titre = m_cellules.horizontalAdvance(table.ColumnHeaders(colonne).Text());
        largeurs.push_back(static_cast<float>(m_vue.UnitesDe(qMax(cellules, titre))));
    }
    return largeurs;
}

float MesuresDeVue::LargeurDuTitre(const QString& titre) const
{
    return static_cast<float>(m_vue.UnitesDe(m_titres.horizontalAdvance(titre)));
}
