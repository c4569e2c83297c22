// The titles over a list. With the keys: arrows, Home and End go from title to title, Enter or the space bar does what
// a click does, Tab, Down and Escape go back to the list. Columns count from 1.
#pragma once

#include <QHeaderView>

class TitresDeLignes : public QHeaderView
{
    Q_OBJECT

public:
    explicit TitresDeLignes(QWidget* parent);

    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    /// Gives the titles the keys. False where there is none that could be clicked.
    bool PrendreLesTouches();

signals:
    /// A title was chosen with the keyboard.
    void TitreChoisi(int colonne);
    /// Keys work on this title now.
    void TitreAtteint(int colonne);
    /// The keys go back: to the list, or past it to what comes before.
    void Quitte(bool versLaListe);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool suivant) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& place, int section) const override;

private:
    void AllerA(int section);
    /// The nearest section that has a width, from `section` on towards `sens`; -1 for none.
    int Voisine(int section, int sens) const;
    void DessinerLeReste(const QRect& place);

    int m_section = -1; ///< with the keys, from 0
};
