#include "output/ColonnesDeFeuille.h"

#include "base/SurUneLigne.h"
#include "output/OptionsDImpression.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double PriseDuBord = 4;       // pixels on either side
constexpr double MargeDuTitre = 0.6;    // mm of the sheet
constexpr double HauteurDeRangee = 1.2; // mm of the sheet, about what a line of the table takes on paper
const QColor Encre(0x20, 0x20, 0x20);
const QColor Filet(0xd8, 0xd8, 0xd8);
const QColor FondDuTitre(0xee, 0xee, 0xee);

} // namespace

ColonnesDeFeuille::ColonnesDeFeuille(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
}

void ColonnesDeFeuille::MettreColonnes(const std::vector<Feuille::Colonne>& colonnes)
{
    m_colonnes = colonnes;
    update();
}

void ColonnesDeFeuille::MettreLargeur(int colonne, double largeur)
{
    m_colonnes[static_cast<size_t>(colonne - 1)].largeur = std::clamp(largeur, 0., OptionsDImpression::LargeurMax);
    update();
}

void ColonnesDeFeuille::MettreEchelle(double pixelsParMm)
{
    m_echelle = pixelsParMm;
    update();
}

void ColonnesDeFeuille::MettreRangees(int rangees)
{
    m_rangees = rangees;
    update();
}

/// The pixel where column `colonne` ends, and the next one begins.
double ColonnesDeFeuille::Bord(int colonne) const
{
    double mm = 0;
    for (int i = 0; i < colonne; ++i)
        mm += m_colonnes[static_cast<size_t>(i)].largeur;
    return mm * m_echelle;
}

/// Borders of columns without a width lie on the one before them: to its left that one is taken, and to its right the
/// last of those, which so comes back.
int ColonnesDeFeuille::ColonneDuBord(double x) const
{
    int proche = 0;
    double ecart = PriseDuBord;
    double bord = 0;
    for (size_t i = 0; i < m_colonnes.size(); ++i) {
        bord += m_colonnes[i].largeur * m_echelle;
        const double distance = std::abs(x - bord);
        const bool avant = distance < ecart;
        const bool dessus = distance == ecart && m_colonnes[i].largeur <= 0 && (x > bord || proche == 0);
        if (avant || dessus) {
            proche = static_cast<int>(i) + 1;
            ecart = distance;
        }
    }
    return proche;
}

int ColonnesDeFeuille::ColonneSous(double x) const
{
    double bord = 0;
    for (size_t i = 0; i < m_colonnes.size(); ++i) {
        bord += m_colonnes[i].largeur * m_echelle;
        if (x < bord)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

double ColonnesDeFeuille::HauteurDuTitre() const
{
    return QFontMetricsF(font()).height() + MargeDuTitre * m_echelle;
}

void ColonnesDeFeuille::DessinerRangees(QPainter& peintre, double largeur) const
{
    // Whole pixels: lines at uneven distances flicker.
    const double pas = std::max(2., std::round(HauteurDeRangee * m_echelle));
    const double haut = HauteurDuTitre();
    const int place = static_cast<int>((height() - 1 - haut) / pas);
    const int rangees = std::min(m_rangees, place);
    peintre.setPen(Filet);
    for (int i = 1; i <= rangees; ++i)
        peintre.drawLine(QPointF(0, haut + i * pas), QPointF(largeur, haut + i * pas));
    double bord = 0;
    for (const Feuille::Colonne& colonne : m_colonnes) {
        if (bord < width())
            peintre.drawLine(QPointF(bord, haut), QPointF(bord, haut + rangees * pas));
        bord += colonne.largeur * m_echelle;
    }
    peintre.drawLine(QPointF(largeur, haut), QPointF(largeur, haut + rangees * pas));
}

void ColonnesDeFeuille::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    const double haut = HauteurDuTitre();
    DessinerRangees(peintre, Bord(static_cast<int>(m_colonnes.size())));
    double bord = 0;
    for (const Feuille::Colonne& colonne : m_colonnes) {
        const double largeur = colonne.largeur * m_echelle;
        if (largeur > 0 && bord < width()) {
            const QRectF titre(bord, 0, largeur, haut);
            peintre.setPen(Encre);
            peintre.setBrush(FondDuTitre);
            peintre.drawRect(titre.adjusted(0.5, 0.5, 0.5, 0.5));
            const double marge = MargeDuTitre * m_echelle;
            const QRectF place = titre.adjusted(marge, 0, -marge / 2, 0);
            peintre.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
                             peintre.fontMetrics().elidedText(SurUneLigne(colonne.titre), Qt::ElideRight,
                                                              static_cast<int>(place.width())));
        }
        bord += largeur;
    }
}

void ColonnesDeFeuille::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const double x = event->position().x();
    m_tiree = ColonneDuBord(x);
    if (m_tiree) {
        m_prise = x - Bord(m_tiree);
        emit ColonneCliquee(m_tiree);
    } else if (const int sous = ColonneSous(x)) {
        emit ColonneCliquee(sous);
    }
}

void ColonnesDeFeuille::mouseMoveEvent(QMouseEvent* event)
{
    const double x = event->position().x();
    if (m_tiree == 0) {
        setCursor(ColonneDuBord(x) ? Qt::SplitHCursor : Qt::ArrowCursor);
        return;
    }
    MettreLargeur(m_tiree, (x - m_prise - Bord(m_tiree - 1)) / m_echelle);
    emit LargeurTiree(m_tiree);
}

void ColonnesDeFeuille::mouseReleaseEvent(QMouseEvent*)
{
    m_tiree = 0;
}
