// Pages as they are to be printed: what stands on them and where, compact, so that a job of a thousand pages can be
// kept until the user has agreed to it. Lengths are in millimetres, from the upper left corner of the paper.
#pragma once

#include "output/MesureDeTexte.h"

#include <QRectF>
#include <QString>

#include <cstdint>
#include <vector>

class PageComposee
{
public:
    struct Texte
    {
        float x, y;
        uint32_t debut, taille; ///< its characters among those of the page
        uint32_t police;        ///< among those of the job
    };

    void EcrireTexte(double x, double y, QStringView texte, uint32_t police)
    {
        textes.push_back({static_cast<float>(x), static_cast<float>(y), static_cast<uint32_t>(m_signes.size()),
                          static_cast<uint32_t>(texte.size()), police});
        m_signes += texte;
    }
    QString Signes(const Texte& texte) const { return m_signes.mid(texte.debut, texte.taille); }

    std::vector<Texte> textes; ///< by the upper left corner of their line
    struct Boite
    {
        float x, y, largeur, hauteur;
    };
    std::vector<Boite> boites; ///< thin outlines
    QRectF image;              ///< where the picture stands; empty for none

private:
    QString m_signes;
};

struct PagesComposees
{
    std::vector<PageComposee> pages;
    std::vector<PoliceDePage> polices;

    uint32_t Police(const PoliceDePage& police);
};
