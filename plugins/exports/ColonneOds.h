// What a spreadsheet makes of one column: how wide it is, and whether its values are numbers.
#pragma once

#include <QByteArray>
#include <QStringView>

#include <cstdint>
#include <optional>

/// How many decimals a plain number has: up to eleven digits in all, none or one or two behind a point or a comma, no
/// leading zero, no plus. Nothing for other texts: those are what a number would lose something of. Three decimals may
/// be thousands, and from twelve digits on spreadsheets tend to show powers of ten.
std::optional<int> DecimalesDe(QStringView valeur);

/// To be shown all values of a column before the first cell is written: the cells are numbers only when each that is
/// not empty is a number, with as many decimals as the others.
class ColonneOds
{
public:
    explicit ColonneOds(QStringView titre);

    void Voir(QStringView valeur);
    /// As numbers with so many decimals; nothing when they are texts.
    std::optional<int> EnNombres() const { return m_nombres > 0 && m_pareils ? m_decimales : std::nullopt; }
    /// In characters, within sensible bounds.
    int Largeur() const;
    bool EstVide() const { return m_vide; }
    void AjouterCellule(QByteArray& sortie, QStringView valeur) const;
    /// What the cells of all values that were seen are long, in bytes.
    int64_t Octets() const;

private:
    int64_t m_octets = 0; ///< as texts
    int64_t m_nombres = 0;
    int64_t m_chiffres = 0; ///< characters of the numbers
    std::optional<int> m_decimales;
    bool m_pareils = true;
    bool m_vide = true;
    qsizetype m_largeur;
};
