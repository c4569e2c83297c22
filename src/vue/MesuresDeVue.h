// Measures the columns of a table on the screen, for those who fit them.
#pragma once

#include "vue/mAjustColListView.h"

#include <QFontMetrics>

class VueTable;

class MesuresDeVue : public MesuresDeColonnes
{
public:
    /// Cells in the font of `vue`, titles in that of `fenetre`. Neither is owned.
    MesuresDeVue(const VueTable& vue, const QWidget& fenetre);

    std::vector<float> LargeursDuContenu() const override;
    float LargeurDuTitre(const QString& titre) const override;

private:
    const VueTable& m_vue;
    QFontMetrics m_cellules;
    QFontMetrics m_titres;
};
