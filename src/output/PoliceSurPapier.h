// Fonts as they come out on paper, in units of the painter. Fonts take whole sizes: the units are so small that none is
// off by what could be seen.
#pragma once

#include "output/MesureDeTexte.h"
#include "platform/Imprimantes.h"

#include <QFont>
#include <QFontMetricsF>

#include <array>
#include <memory>
#include <vector>

constexpr double UnitesParMm = UnitesParPouce / 25.4;

/// The font in the painter's units. A text is as wide as its characters together, as far as their script allows.
QFont PoliceSurPapier(const PoliceDePage& police);

/// Measures as the painter writes.
class MesureSurPapier : public MesureDeTexte
{
public:
    void Choisir(const PoliceDePage& police) override;
    double Largeur(QStringView texte) const override;
    double Hauteur() const override;

private:
    /// Scripts whose characters stand side by side, one for one.
    static constexpr size_t SignesSimples = 0x300;
    struct Mesuree
    {
        PoliceDePage police;
        QFontMetricsF mesures;
        std::array<float, SignesSimples> largeurs; ///< in the painter's units; negative for one not measured yet
    };

    std::vector<std::unique_ptr<Mesuree>> m_polices;
    Mesuree* m_choisie = nullptr;
};
