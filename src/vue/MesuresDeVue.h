// Measures the columns of a list on the screen, for those who fit them.
#pragma once

#include "vue/mAjustColListView.h"

#include <QFontMetrics>

class VueDesLignes;

class MesuresDeVue : public MesuresDeColonnes
{
public:
    /// Cells in the font of `vue`, titles in that of `fenetre`. Neither is owned.
    MesuresDeVue(const VueDesLignes& vue, const QWidget& fenetre);

    std::vector<float> LargeursDuContenu() const override;
    float LargeurDuTitre(const QString& titre) const override;

private:
    const VueDesLignes& m_vue;
    QFontMetrics m_cellules;
    QFontMetrics m_titres;
};
