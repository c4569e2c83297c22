// The widest of many texts, column by column.
#pragma once

#include <QFontMetrics>
#include <QString>

#include <array>
#include <vector>

/// Finds it without laying out each: what a sum of character widths puts far below the widest so far is not measured.
/// Kerning moves a text's width by less than that.
class PlusLarge
{
public:
    PlusLarge(const QFontMetrics& mesures, int colonnes);

    /// A text of column `colonne` (from 1).
    void Voir(int colonne, const QString& texte);
    /// In pixels; 0 before the column's first text.
    int Largeur(int colonne) const { return m_largeurs[static_cast<size_t>(colonne - 1)]; }

private:
    double Estimation(QStringView texte) const;

    QFontMetrics m_mesures;
    std::array<int, 256> m_signes{};
    int m_autreSigne;
    std::vector<int> m_largeurs;
};
