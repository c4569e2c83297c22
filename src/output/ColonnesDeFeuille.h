// The columns on the sheet of the print dialog: their titles, and lines that are dragged to change their widths, down
// to nothing and back.
#pragma once

#include "output/Feuille.h"

#include <QWidget>

#include <vector>

class ColonnesDeFeuille : public QWidget
{
    Q_OBJECT

public:
    explicit ColonnesDeFeuille(QWidget* parent = nullptr);

    void MettreColonnes(const std::vector<Feuille::Colonne>& colonnes);
    /// Widths in millimetres of the sheet.
    const std::vector<Feuille::Colonne>& Colonnes() const { return m_colonnes; }
    /// Of column `colonne` (from 1); 0 leaves it out.
    void MettreLargeur(int colonne, double largeur);
    /// Pixels of a millimetre of the sheet. The titles are in the font of the widget.
    void MettreEchelle(double pixelsParMm);
    /// As many rows are hinted at below the titles, if there is room.
    void MettreRangees(int rangees);

signals:
    /// The user drags the border of column `colonne` (from 1).
    void LargeurTiree(int colonne);
    void ColonneCliquee(int colonne);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    double Bord(int colonne) const;
    int ColonneDuBord(double x) const;
    int ColonneSous(double x) const;
    double HauteurDuTitre() const;
    void DessinerRangees(QPainter& peintre, double largeur) const;

    std::vector<Feuille::Colonne> m_colonnes;
    double m_echelle = 1;
    int m_rangees = 0;
    int m_tiree = 0;    ///< the column whose border is held; 0 for none
    double m_prise = 0; ///< from the border to the pointer that holds it, in pixels
};
