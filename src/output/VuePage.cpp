#include "output/VuePage.h"

#include "output/PeindrePages.h"
#include "output/PoliceSurPapier.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr double LargeurA4 = 210; // mm
constexpr double HauteurA4 = 297;
const QColor OmbreDuPapier(0, 0, 0, 60);

} // namespace

VuePage::VuePage(const PeintreDePages& pages, QWidget* parent) : QWidget(parent), m_pages(pages) {}

void VuePage::Montrer(size_t page)
{
    m_page = page;
    update();
}

int VuePage::HauteurPour(int largeur)
{
    return static_cast<int>(std::lround(largeur * HauteurA4 / LargeurA4));
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
    peintre.fillRect(papier.translated(3, 3), OmbreDuPapier);
    peintre.fillRect(papier, Qt::white);
    peintre.setClipRect(papier & event->rect());
    peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    peintre.translate(papier.topLeft());
    const double echelle = m_largeur / (LargeurA4 * UnitesParMm);
    peintre.scale(echelle, echelle);
    m_pages.Peindre(peintre, m_page);
}
