// Draws the cells of a document's table: straight from the table, without a text layout a cell.
#pragma once

#include <QStyledItemDelegate>

class ModeleTable;

class DelegueEntrees : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit DelegueEntrees(const ModeleTable& modele, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The room that a cell needs to be read whole; what a double click on a column's edge goes by.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Whether a text of column `colonne` (from 1) is drawn whole in so many pixels.
    static bool TientEn(const QString& texte, int colonne, int largeur, const QFontMetrics& mesures);
    /// Pixels of a cell of column `colonne` (from 1) beside its text.
    static int AutourDuTexte(int colonne);
    /// Height of every row with this font, in pixels.
    static int HauteurLigne(const QFontMetrics& mesures);

private:
    const ModeleTable& m_modele;
};
