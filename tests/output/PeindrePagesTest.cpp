#include "output/PeindrePages.h"

#include "output/PoliceSurPapier.h"
#include "support/Impression.h"

#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int PixelsParMm = 10;

/// A page as it comes out on white paper.
QImage Peindre(const PagesComposees& pages, const QImage& image = QImage())
{
    QImage papier(210 * PixelsParMm, 297 * PixelsParMm, QImage::Format_RGB32);
    papier.fill(Qt::white);
    QPainter peintre(&papier);
    peintre.scale(PixelsParMm / UnitesParMm, PixelsParMm / UnitesParMm);
    PeintreDePages(pages, image).Peindre(peintre, 0);
    return papier;
}

/// What is not white, in mm.
QRectF Encre(const QImage& papier)
{
    QRect encre;
    for (int y = 0; y < papier.height(); ++y) {
        for (int x = 0; x < papier.width(); ++x) {
            if (papier.pixel(x, y) != qRgb(255, 255, 255))
                encre |= QRect(x, y, 1, 1);
        }
    }
    return {encre.x() / double(PixelsParMm), encre.y() / double(PixelsParMm), encre.width() / double(PixelsParMm),
            encre.height() / double(PixelsParMm)};
}

PagesComposees UneLettre(double taille)
{
    PagesComposees pages;
    pages.pages.emplace_back();
    pages.pages[0].EcrireTexte(50, 100, u"H", pages.Police({u"DejaVu Sans"_s, taille, false}));
    return pages;
}

} // namespace

TEST(PeindrePages, ATextStandsBelowItsCornerInItsSize)
{
    const QRectF petit = Encre(Peindre(UneLettre(6)));
    const QRectF grand = Encre(Peindre(UneLettre(60)));
    EXPECT_NEAR(petit.x(), 50, 0.5);
    EXPECT_GT(petit.y(), 100);
    EXPECT_LT(petit.y(), 101.5);
    EXPECT_GT(grand.y(), 100);
    EXPECT_NEAR(grand.height() / petit.height(), 10, 1.5);
    // A capital of this font is 0.73 of its size.
    EXPECT_NEAR(grand.height(), 60 * 25.4 / 72 * 0.73, 0.4);
}

TEST(PeindrePages, TextsOfTwoFontsOnAPageHaveEachItsOwn)
{
    PagesComposees pages = UneLettre(6);
    const QRectF seul = Encre(Peindre(pages));
    pages.pages[0].EcrireTexte(50, 150, u"H", pages.Police({u"DejaVu Sans"_s, 60, false}));
    pages.pages[0].EcrireTexte(50, 200, u"H", pages.Police({u"DejaVu Sans"_s, 6, false}));
    const QImage papier = Peindre(pages);
    EXPECT_EQ(Encre(papier.copy(0, 0, papier.width(), 140 * PixelsParMm)), seul);
    EXPECT_GT(Encre(papier.copy(0, 140 * PixelsParMm, papier.width(), 55 * PixelsParMm)).height(), 10);
    EXPECT_NEAR(Encre(papier.copy(0, 195 * PixelsParMm, papier.width(), 50 * PixelsParMm)).height(), seul.height(),
                0.2);
}

TEST(PeindrePages, ABoxIsAThinOutline)
{
    PagesComposees pages;
    pages.pages.emplace_back();
    pages.pages[0].boites.push_back({20, 30, 40, 10});
    const QImage papier = Peindre(pages);
    const QRectF encre = Encre(papier);
    EXPECT_NEAR(encre.x(), 20, 0.15);
    EXPECT_NEAR(encre.y(), 30, 0.15);
    EXPECT_NEAR(encre.width(), 40, 0.3);
    EXPECT_NEAR(encre.height(), 10, 0.3);
    EXPECT_EQ(papier.pixelColor(40 * PixelsParMm, 35 * PixelsParMm), QColor(Qt::white)) << "nothing within";
}

TEST(PeindrePages, ThePictureFillsItsPlaceWhateverItsProportions)
{
    PagesComposees pages;
    pages.pages.emplace_back();
    pages.pages[0].image = QRectF(10, 20, 30, 30);
    QImage image(8, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QRectF encre = Encre(Peindre(pages, image));
    EXPECT_NEAR(encre.x(), 10, 0.15);
    EXPECT_NEAR(encre.y(), 20, 0.15);
    EXPECT_NEAR(encre.width(), 30, 0.2);
    EXPECT_NEAR(encre.height(), 30, 0.2);
    EXPECT_TRUE(Encre(Peindre(pages)).isEmpty()) << "without a picture there is none";
}
