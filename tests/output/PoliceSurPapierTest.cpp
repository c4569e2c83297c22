#include "output/PoliceSurPapier.h"

#include "output/CouperTexte.h"
#include "support/Impression.h"

#include <QFontDatabase>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double MmParPoint = 25.4 / 72;

} // namespace

TEST(PoliceSurPapier, SizesArePointsOnPaper)
{
    EXPECT_EQ(PoliceSurPapier({u"Arial"_s, 6, false}).pixelSize(), 100);
    EXPECT_EQ(PoliceSurPapier({u"Arial"_s, 15, false}).pixelSize(), 250);
    EXPECT_EQ(PoliceSurPapier({u"Arial"_s, 0, false}).pixelSize(), 1) << "a font has a size";
    EXPECT_FALSE(PoliceSurPapier({u"Arial"_s, 6, false}).bold());
    EXPECT_TRUE(PoliceSurPapier({u"Arial"_s, 6, true}).bold());
}

TEST(PoliceSurPapier, AHeavyFontThatIsNotInstalledHasAHeavyOneInItsPlace)
{
    const bool installee = QFontDatabase::hasFamily(u"Arial Black"_s);
    const QFont font = PoliceSurPapier({u"Arial Black"_s, 6, false});
    EXPECT_EQ(font.family(), installee ? "Arial Black" : "Arial");
    EXPECT_EQ(font.weight(), installee ? QFont::Normal : QFont::Black);
}

TEST(MesureSurPapier, AWidthIsThatOfTheFontInMillimetres)
{
    MesureSurPapier mesure;
    mesure.Choisir({u"DejaVu Sans"_s, 6, false});
    const QFontMetricsF attendu(PoliceSurPapier({u"DejaVu Sans"_s, 6, false}));
    for (const QString& texte : {u"Abbey Road"_s, u"fi ffl AV Té"_s, u"W"_s, QString()})
        EXPECT_NEAR(mesure.Largeur(texte), attendu.horizontalAdvance(texte) / UnitesParMm, 0.02) << texte.toStdString();
    EXPECT_NEAR(mesure.Hauteur(), attendu.height() / UnitesParMm, 1e-6);
    // An em of 6 points is 2.117 mm; a line is somewhat higher.
    EXPECT_GT(mesure.Hauteur(), 6 * MmParPoint);
    EXPECT_LT(mesure.Hauteur(), 6 * MmParPoint * 1.6);
}

TEST(MesureSurPapier, ATextOfAnyScriptHasAWidth)
{
    MesureSurPapier mesure;
    mesure.Choisir({u"DejaVu Sans"_s, 6, false});
    const QFontMetricsF attendu(PoliceSurPapier({u"DejaVu Sans"_s, 6, false}));
    const QString texte = u"Жизнь 日本 مرحبا e\u0301"_s;
    EXPECT_NEAR(mesure.Largeur(texte), attendu.horizontalAdvance(texte) / UnitesParMm, 1e-6);
}

TEST(MesureSurPapier, EachFontKeepsItsOwnWidths)
{
    MesureSurPapier mesure;
    mesure.Choisir({u"DejaVu Sans"_s, 6, false});
    const double petit = mesure.Largeur(u"Abbey Road");
    mesure.Choisir({u"DejaVu Sans"_s, 12, false});
    EXPECT_NEAR(mesure.Largeur(u"Abbey Road"), 2 * petit, 0.05);
    mesure.Choisir({u"DejaVu Sans"_s, 6, true});
    EXPECT_GT(mesure.Largeur(u"Abbey Road"), petit);
    mesure.Choisir({u"DejaVu Sans"_s, 6, false});
    EXPECT_EQ(mesure.Largeur(u"Abbey Road"), petit);
}
