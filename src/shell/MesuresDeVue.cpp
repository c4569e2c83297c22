#include "shell/MesuresDeVue.h"

#include "entries/PlusLarge.h"
#include "shell/DelegueEntrees.h"
#include "shell/ModeleTable.h"
#include "shell/VueTable.h"

MesuresDeVue::MesuresDeVue(const VueTable& vue, const QWidget& fenetre)
    : m_vue(vue), m_cellules(vue.fontMetrics()), m_titres(fenetre.fontMetrics())
{
}

float MesuresDeVue::LargeurDuContenu(int colonne) const
{
    const MyLV& table = m_vue.Modele().Table();
    PlusLarge plusLarge(m_cellules);
    for (int ligne = 1; ligne <= table.ListItems.Count(); ++ligne)
        plusLarge.Voir(table.ListItems(ligne).Valeur(colonne));
    // A pixel more than the text takes: a width is rounded on its way to the screen.
    const int cellules = plusLarge.Largeur() + DelegueEntrees::AutourDuTexte(colonne) + 1;
    const int titre = m_cellules.horizontalAdvance(table.ColumnHeaders(colonne).Text());
    return static_cast<float>(m_vue.UnitesDe(qMax(cellules, titre)));
}

float MesuresDeVue::LargeurDuTitre(const QString& titre) const
{
    return static_cast<float>(m_vue.UnitesDe(m_titres.horizontalAdvance(titre)));
}
