// Measures texts as they come out on paper, for those who lay out pages and know nothing of printers.
#pragma once

#include <QString>

/// The paper, in millimetres: A4.
constexpr double LargeurDuPapier = 210;
constexpr double HauteurDuPapier = 297;

struct PoliceDePage
{
    QString nom;
    double taille = 0; ///< in points
    bool gras = false;
    bool operator==(const PoliceDePage&) const = default;
};

/// In millimetres.
class MesureDeTexte
{
public:
    virtual ~MesureDeTexte() = default;

    /// The font that texts are measured in from here on.
    virtual void Choisir(const PoliceDePage& police) = 0;
    virtual double Largeur(QStringView texte) const = 0;
    /// Of a line: the letter "A".
    virtual double Hauteur() const = 0;
};
