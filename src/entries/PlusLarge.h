// The widest of many texts.
#pragma once

#include <QFontMetrics>
#include <QString>

#include <array>

/// Finds it without laying out each: what a sum of character widths puts far below the widest so far is not measured.
/// Kerning moves a text's width by less than that.
class PlusLarge
{
public:
    explicit PlusLarge(const QFontMetrics& mesures);

    void Voir(const QString& texte);
    /// In pixels; 0 before the first text.
    int Largeur() const { return m_largeur; }

private:
    double Estimation(QStringView texte) const;

    QFontMetrics m_mesures;
    std::array<int, 256> m_signes{};
    int m_largeur = 0;
};
