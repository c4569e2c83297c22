// A font in which every character is a millimetre wide and a line two high.
#pragma once

#include "output/MesureDeTexte.h"

class MesureFixe : public MesureDeTexte
{
public:
    void Choisir(const PoliceDePage& police) override { choisie = police; }
    double Largeur(QStringView texte) const override { return static_cast<double>(texte.size()); }
    double Hauteur() const override { return 2; }

    PoliceDePage choisie;
};
