#include "output/MiseEnPages.h"

#include "MesureFixe.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

using namespace Qt::StringLiterals;

namespace {

// On paper, in mm: where the columns begin, and the rows on the first page.
constexpr double X1 = 4.233 * 2.5;
constexpr double Y1 = 10.583 * 2.5;
constexpr double Ligne = 2;

class MiseEnPagesTest : public testing::Test
{
protected:
    MiseEnPagesTest()
    {
        MettreColonnes(table, {"Titre", "Artiste"});
        feuille.colonnes = {{u"Titre"_s, 20}, {u"Artiste"_s, 10}};
        feuille.NomCat.texte = u"Mes disques"_s;
    }

    const PagesComposees& Composer(bool selection = false)
    {
        mise = std::make_unique<MiseEnPages>(table, feuille, u"Verdana"_s, selection, mesure);
        while (mise->Avancer(1000)) {
        }
        return mise->Pages;
    }
    /// The texts of a page (from 1) in the order in which they were printed.
    QStringList Textes(size_t page) const
    {
        const PageComposee& laPage = mise->Pages.pages.at(page - 1);
        QStringList textes;
        for (const PageComposee::Texte& texte : laPage.textes)
            textes.append(laPage.Signes(texte));
        return textes;
    }
    const PageComposee::Texte& Texte(size_t page, size_t numero) const
    {
        return mise->Pages.pages.at(page - 1).textes.at(numero - 1);
    }
    PoliceDePage PoliceDe(const PageComposee::Texte& texte) const { return mise->Pages.polices.at(texte.police); }
    const std::vector<PageComposee::Boite>& Boites(size_t page) const { return mise->Pages.pages.at(page - 1).boites; }
    void Remplir(int entrees)
    {
        for (int i = 1; i <= entrees; ++i)
            AjouterEntrees(table, {{QString::number(i), u"x"_s}});
    }
    /// A value of so many lines in the first column, which holds fifty characters.
    static QString Long(int lignes)
    {
        QStringList mots;
        for (int i = 1; i <= lignes; ++i)
            mots.append(QString::number(i).rightJustified(40, u'-'));
        return mots.join(u' ');
    }

    MyLV table;
    Feuille feuille;
    MesureFixe mesure;
    std::unique_ptr<MiseEnPages> mise;
};

} // namespace

TEST_F(MiseEnPagesTest, TheHeadingAndThePageNumberGrowWithThePaper)
{
    Composer();
    EXPECT_EQ(Textes(1).mid(0, 2), QStringList({"Mes disques", "1"}));
    EXPECT_NEAR(Texte(1, 1).x, 22.49, 1e-3);
    EXPECT_NEAR(Texte(1, 1).y, 11.9075, 1e-3);
    EXPECT_EQ(PoliceDe(Texte(1, 1)), (PoliceDePage{u"Arial Black"_s, 15, false}));
    EXPECT_NEAR(Texte(1, 2).x, 190.5, 1e-3);
    EXPECT_NEAR(Texte(1, 2).y, 11.9075, 1e-3);
    EXPECT_EQ(PoliceDe(Texte(1, 2)), (PoliceDePage{u"Arial"_s, 15, false}));
}

TEST_F(MiseEnPagesTest, ThePictureIsWhereTheSheetHasIt)
{
    Composer();
    EXPECT_TRUE(mise->Pages.pages[0].image.isEmpty());
    feuille.iconeMontree = true;
    Remplir(200);
    Composer();
    const QRectF& image = mise->Pages.pages[0].image;
    EXPECT_NEAR(image.x(), 10.5825, 1e-9);
    EXPECT_NEAR(image.height(), 10.5825, 1e-9);
    EXPECT_TRUE(mise->Pages.pages[1].image.isEmpty()) << "on the first page alone";
}

TEST_F(MiseEnPagesTest, TitlesAreBoldInTheSizeOfTheSheetAndInBoxes)
{
    Composer();
    ASSERT_EQ(Textes(1).mid(2), QStringList({" Titre", " Artiste"}));
    EXPECT_NEAR(Texte(1, 3).x, X1, 1e-3);
    EXPECT_NEAR(Texte(1, 3).y, Y1, 1e-3);
    EXPECT_NEAR(Texte(1, 4).x, X1 + 50, 1e-3);
    EXPECT_EQ(PoliceDe(Texte(1, 3)), (PoliceDePage{u"Arial"_s, 6, true}));
    ASSERT_EQ(Boites(1).size(), 2);
    EXPECT_NEAR(Boites(1)[1].x, X1 + 50, 1e-3);
    EXPECT_NEAR(Boites(1)[1].y, Y1, 1e-3);
    EXPECT_NEAR(Boites(1)[1].largeur, 25, 1e-3);
    EXPECT_NEAR(Boites(1)[1].hauteur, Ligne, 1e-3);
}

TEST_F(MiseEnPagesTest, EachEntryIsARowBelowTheOneBefore)
{
    AjouterEntrees(table, {{"Aja", "Steely Dan"}, {"Blue", "Joni Mitchell et un nom trop long"}, {"", "Cale"}});
    Composer();
    ASSERT_EQ(Textes(1).mid(4),
              QStringList({" Aja", " Steely Dan", " Blue", " Joni Mitchell et un nom", "trop long", "", " Cale"}));
    EXPECT_NEAR(Texte(1, 5).y, Y1 + 2, 1e-3);
    EXPECT_EQ(PoliceDe(Texte(1, 5)), (PoliceDePage{u"Verdana"_s, 6, false}));
    EXPECT_NEAR(Texte(1, 9).y, Y1 + 6, 1e-3) << "the second line of a cell";
    EXPECT_NEAR(Texte(1, 10).y, Y1 + 8, 1e-3) << "below both lines";
    ASSERT_EQ(Boites(1).size(), 8);
    EXPECT_NEAR(Boites(1)[4].hauteur, 4, 1e-3) << "the row is as high as its highest cell";
    EXPECT_NEAR(Boites(1)[6].hauteur, Ligne, 1e-3) << "an empty value has a line";
}

TEST_F(MiseEnPagesTest, AColumnWithoutWidthIsLeftOut)
{
    feuille.colonnes[0].largeur = 0;
    AjouterEntrees(table, {{"Aja", "Steely Dan"}});
    Composer();
    EXPECT_EQ(Textes(1).mid(2), QStringList({" Artiste", " Steely Dan"}));
    EXPECT_NEAR(Texte(1, 3).x, X1, 1e-3);
    EXPECT_EQ(Boites(1).size(), 2);
}

TEST_F(MiseEnPagesTest, WithoutAnyColumnThereIsOnePageWithItsHeading)
{
    for (Feuille::Colonne& colonne : feuille.colonnes)
        colonne.largeur = 0;
    Remplir(1000);
    EXPECT_EQ(Composer().pages.size(), 1);
    EXPECT_EQ(Textes(1), QStringList({"Mes disques", "1"}));
    EXPECT_TRUE(Boites(1).empty());
}

TEST_F(MiseEnPagesTest, OnlyTheSelectedOnesWhereTheUserWantsThose)
{
    Remplir(3);
    table.Selectionner(2, 2, true);
    Composer(true);
    EXPECT_EQ(Textes(1).mid(4), QStringList({" 2", " x"}));
    table.Selectionner(2, 2, false);
    EXPECT_EQ(Composer(true).pages.size(), 1);
    EXPECT_EQ(Textes(1).size(), 4) << "the heading and the titles";
}

TEST_F(MiseEnPagesTest, ARowThatReachesTheBottomEndsThePageAndBeginsTheNextWithNothing)
{
    Remplir(130);
    Composer();
    // The last row of the page is the first whose end lies below 270 mm.
    const int dernier = static_cast<int>((270 - Y1) / Ligne);
    EXPECT_EQ(Textes(1).last(2), QStringList({u' ' + QString::number(dernier), " x"}));
    EXPECT_EQ(Textes(2).mid(0, 4), QStringList({"Mes disques", "2", u' ' + QString::number(dernier + 1), " x"}))
        << "the titles are on the first page alone";
    ASSERT_GE(Boites(2).size(), 4);
    EXPECT_EQ(Boites(2)[0].hauteur, 0) << "of the row that was whole on the page before";
    const double suite = (10.583 - 2) * 2.5 + Ligne;
    EXPECT_NEAR(Boites(2)[0].y, suite, 1e-3);
    EXPECT_NEAR(Boites(2)[2].y, suite, 1e-3);
}

TEST_F(MiseEnPagesTest, ACellThatDoesNotFitGoesOnOnTheNextPageWithTheRow)
{
    Remplir(100);
    AjouterEntrees(table, {{Long(40), "un deux trois"}});
    Composer();
    ASSERT_EQ(mise->Pages.pages.size(), 2);
    const int faites = static_cast<int>((270 - Y1) / Ligne) - 100; // lines of it on the first page
    EXPECT_EQ(Textes(1).last(2), QStringList({QString::number(faites).rightJustified(40, u'-'), " un deux trois"}));
    ASSERT_EQ(Textes(2).mid(2).size(), 40 - faites) << "nothing is left of the other cell";
    EXPECT_EQ(Textes(2).at(2), QString::number(faites + 1).rightJustified(40, u'-'));
    EXPECT_NEAR(Texte(2, 3).y, (10.583 - 2) * 2.5 + Ligne * faites, 1e-2) << "below the height of its first part";
    EXPECT_NEAR(Boites(2)[0].hauteur, Ligne * (40 - faites), 1e-3);
}

TEST_F(MiseEnPagesTest, BothLongCellsGoOnFromTheSameLine)
{
    feuille.colonnes = {{u"Titre"_s, 20}, {u"Artiste"_s, 20}};
    Remplir(100);
    AjouterEntrees(table, {{Long(30), Long(40)}});
    Composer();
    ASSERT_EQ(mise->Pages.pages.size(), 2);
    const int faites = static_cast<int>((270 - Y1) / Ligne) - 100;
    const auto ligne = [](int i) { return QString::number(i).rightJustified(40, u'-'); };
    ASSERT_EQ(Textes(2).mid(2).size(), 30 - faites + 40 - faites);
    EXPECT_EQ(Textes(2).at(2), ligne(faites + 1));
    EXPECT_EQ(Textes(2).at(2 + 30 - faites), ligne(faites + 1)) << "the other one too";
    EXPECT_NEAR(Texte(2, 3).y, Texte(2, 3 + 30 - static_cast<size_t>(faites)).y, 1e-3);
    EXPECT_NEAR(Boites(2)[0].hauteur, Ligne * (40 - faites), 1e-3) << "the longest gives the height";
}

TEST_F(MiseEnPagesTest, AnEmptyRowHasTheHeightOfALine)
{
    AjouterEntrees(table, {{"", ""}, {"Aja", ""}});
    Composer();
    EXPECT_NEAR(Boites(1)[2].hauteur, Ligne, 1e-3);
    EXPECT_NEAR(Boites(1)[4].y, Boites(1)[2].y + Ligne, 1e-3);
}

TEST_F(MiseEnPagesTest, OnAThirdPageLinesAreCountedFromTheSecond)
{
    AjouterEntrees(table, {{Long(240), ""}});
    Composer();
    ASSERT_GE(mise->Pages.pages.size(), 3);
    const qsizetype surLaDeuxieme = Textes(2).size() - 2;
    EXPECT_EQ(Textes(3).at(2).right(4), QString::number(surLaDeuxieme + 1).rightJustified(4, u'-'));
}

TEST_F(MiseEnPagesTest, ACellOfAnyLengthComesToItsEnd)
{
    AjouterEntrees(table, {{Long(5000), ""}, {"fin", ""}});
    Composer();
    std::set<QString> lignes;
    for (size_t page = 1; page <= mise->Pages.pages.size(); ++page) {
        for (const QString& texte : Textes(page))
            lignes.insert(texte.trimmed());
    }
    for (int i = 1; i <= 5000; ++i)
        EXPECT_TRUE(lignes.contains(QString::number(i).rightJustified(40, u'-'))) << i;
    EXPECT_TRUE(lignes.contains(u"fin"_s));
    EXPECT_LT(mise->Pages.pages.size(), 200);
}
