#include "output/PeindrePages.h"

#include "output/PoliceSurPapier.h"

#include <QPainter>

#include <utility>

namespace {

constexpr double EpaisseurDuTrait = 0.1; // mm

QRectF EnUnites(const QRectF& mm)
{
    return {mm.x() * UnitesParMm, mm.y() * UnitesParMm, mm.width() * UnitesParMm, mm.height() * UnitesParMm};
}

} // namespace

void DessinerPapier(QPainter& peintre, const QRectF& place)
{
    constexpr double ombre = 3; // pixels
    peintre.fillRect(place.translated(ombre, ombre), QColor(0, 0, 0, 60));
    peintre.fillRect(place, Qt::white);
    peintre.setPen(QColor(0xa0, 0xa0, 0xa0));
    peintre.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
}

PeintreDePages::PeintreDePages(const PagesComposees& pages, QImage image) : m_pages(pages), m_image(std::move(image))
{
    m_polices.reserve(pages.polices.size());
    for (const PoliceDePage& police : pages.polices) {
        const QFont font = PoliceSurPapier(police);
        m_polices.push_back({font, QFontMetricsF(font).ascent()});
    }
}

void PeintreDePages::Peindre(QPainter& peintre, size_t page) const
{
    const PageComposee& composee = m_pages.pages[page];
    if (!composee.image.isEmpty() && !m_image.isNull())
        peintre.drawImage(EnUnites(composee.image), m_image);

    peintre.setPen(QPen(Qt::black, EpaisseurDuTrait * UnitesParMm, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    peintre.setBrush(Qt::NoBrush);
    QList<QRectF> boites;
    boites.reserve(static_cast<qsizetype>(composee.boites.size()));
    for (const PageComposee::Boite& boite : composee.boites)
        boites.append(EnUnites({boite.x, boite.y, boite.largeur, boite.hauteur}));
    peintre.drawRects(boites);

    const Police* choisie = nullptr;
    for (const PageComposee::Texte& texte : composee.textes) {
        const Police& police = m_polices[texte.police];
        if (&police != choisie)
            peintre.setFont(police.font);
        choisie = &police;
        peintre.drawText(QPointF(texte.x * UnitesParMm, texte.y * UnitesParMm + police.ascension),
                         composee.Signes(texte));
    }
}
