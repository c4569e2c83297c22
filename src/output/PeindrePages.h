// Puts composed pages on paper, or on a screen that shows them.
#pragma once

#include "output/PagesComposees.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>

class QPainter;

/// A white sheet on the screen, with its shadow, in every theme.
void DessinerPapier(QPainter& peintre, const QRectF& place);

class PeintreDePages
{
public:
    /// `image`: the picture at the top of the first page. The pages are not owned and outlive this.
    PeintreDePages(const PagesComposees& pages, QImage image);

    size_t Nombre() const { return m_pages.pages.size(); }
    /// Page `page` (from 0). The painter is at the paper's upper left corner, in the units of PoliceSurPapier.h.
    void Peindre(QPainter& peintre, size_t page) const;

private:
    struct Police
    {
        QFont font;
        double ascension; ///< from the top of a line to where its letters stand
    };

    const PagesComposees& m_pages;
    QImage m_image;
    std::vector<Police> m_polices;
};
