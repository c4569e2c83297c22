// A list whose rows are led up and down with the mouse: a cell of its first column is dragged, and goes along with the
// pointer. Whoever shows the list moves what stands in it.
#pragma once

#include "vue/VueDesLignes.h"

class ListeAOrdonner : public VueDesLignes
{
    Q_OBJECT

public:
    using VueDesLignes::VueDesLignes;

signals:
    /// What stands in row `de` is to go to row `vers`. Escape takes it back to where it was pressed.
    void LigneMenee(int de, int vers);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool MenerJusque(int ligne) override;

private:
    enum class Geste {
        Aucun, ///< the pointer selects, as in any list
        Mener,
        Rendu, ///< Escape was pressed: nothing more until the button is released
    };
    Geste m_geste = Geste::Aucun;
    int m_depart = 0;
    int m_ligne = 0;
};
