#include "output/VuePage.h"

#include "output/PeindrePages.h"
#include "output/PoliceSurPapier.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

VuePage::VuePage(const PeintreDePages& pages, QWidget* parent) : QWidget(parent), m_pages(pages) {}

void VuePage::Montrer(size_t page)
{
    m_page = page;
    update();
}

int VuePage::HauteurPour(int largeur)
{
    return static_cast<int>(std::lround(largeur * HauteurDuPapier / LargeurDuPapier));
}

void VuePage::MettreLargeur(int largeur)
{
    m_largeur = largeur;
    setFixedSize(largeur + 2 * Bordure, HauteurPour(largeur) + 2 * Bordure);
    update();
}

void VuePage::paintEvent(QPaintEvent* event)
{
    QPainter peintre(this);
    const QRect papier(Bordure, Bordure, m_largeur, HauteurPour(m_largeur));
    DessinerPapier(peintre, papier);
    peintre.setClipRect(papier & event->rect());
    peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    peintre.translate(papier.topLeft());
    const double echelle = m_largeur / (LargeurDuPapier * UnitesParMm);
    peintre.scale(echelle, echelle);
    m_pages.Peindre(peintre, m_page);
}
