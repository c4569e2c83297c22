#include "vue/SaisieRapide.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SaisieRapideTest : public testing::Test
{
protected:
    SaisieRapideTest()
    {
        MettreColonnes(table, {u"Titre"_s, u"Artiste"_s});
        AjouterEntrees(table, {{u"Abbey Road"_s, u"Beatles"_s},
                               {u"Blue Train"_s, u"Coltrane"_s},
                               {u"Élégie"_s, u"Zed"_s},
                               {u"blues"_s, u"Anonyme"_s},
                               {QString(), u"Sans titre"_s}});
    }

    int Taper(const QString& lettres, int courante, std::chrono::milliseconds quand)
    {
        const auto chercher = [this](const QString& debut, int apres) { return ChercherDebut(table, debut, apres); };
        return saisie.Taper(chercher, lettres, courante, SaisieRapide::Instant() + quand, 400ms);
    }

    MyLV table;
    SaisieRapide saisie;
};

} // namespace

TEST_F(SaisieRapideTest, FindsTheNextEntryThatBeginsSo)
{
    EXPECT_EQ(ChercherDebut(table, u"Blue"_s, 0), 2);
    EXPECT_EQ(ChercherDebut(table, u"Blue"_s, 2), 4);
}

TEST_F(SaisieRapideTest, GoesRoundAndComesBackToTheEntryItLeft)
{
    EXPECT_EQ(ChercherDebut(table, u"a"_s, 3), 1);
    EXPECT_EQ(ChercherDebut(table, u"a"_s, 1), 1);
    EXPECT_EQ(ChercherDebut(table, u"a"_s, 5), 1);
}

TEST_F(SaisieRapideTest, CaseDoesNotMatterAndAccentsDo)
{
    EXPECT_EQ(ChercherDebut(table, u"BLUES"_s, 0), 4);
    EXPECT_EQ(ChercherDebut(table, u"éLÉ"_s, 0), 3);
    EXPECT_EQ(ChercherDebut(table, u"ele"_s, 0), 0);
}

TEST_F(SaisieRapideTest, OnlyTheFirstColumnIsSearched)
{
    EXPECT_EQ(ChercherDebut(table, u"Zed"_s, 0), 0);
}

TEST_F(SaisieRapideTest, NothingBeginsWithNothing)
{
    EXPECT_EQ(ChercherDebut(table, QString(), 0), 0);
    EXPECT_EQ(ChercherDebut(MyLV(), u"a"_s, 0), 0);
}

TEST_F(SaisieRapideTest, LettersInQuickSuccessionMakeOneText)
{
    EXPECT_EQ(Taper(u"b"_s, 1, 0ms), 2);
    EXPECT_EQ(Taper(u"l"_s, 2, 200ms), 2);
    EXPECT_EQ(Taper(u"u"_s, 2, 400ms), 2);
    EXPECT_EQ(Taper(u"e"_s, 2, 600ms), 2);
    EXPECT_EQ(Taper(u"s"_s, 2, 800ms), 4);
}

TEST_F(SaisieRapideTest, ALetterAfterAPauseBeginsAnew)
{
    EXPECT_EQ(Taper(u"b"_s, 0, 0ms), 2);
    EXPECT_EQ(Taper(u"a"_s, 2, 401ms), 1);
}

TEST_F(SaisieRapideTest, OneLetterRepeatedGoesFromEntryToEntry)
{
    EXPECT_EQ(Taper(u"b"_s, 0, 0ms), 2);
    EXPECT_EQ(Taper(u"b"_s, 2, 100ms), 4);
    EXPECT_EQ(Taper(u"b"_s, 4, 200ms), 2);
}

TEST_F(SaisieRapideTest, ATextThatNothingBeginsWithStaysWhereItIs)
{
    EXPECT_EQ(Taper(u"b"_s, 0, 0ms), 2);
    EXPECT_EQ(Taper(u"z"_s, 2, 100ms), 0);
    EXPECT_EQ(Taper(u"l"_s, 2, 200ms), 0);
}

TEST_F(SaisieRapideTest, ATextIsBeingTypedUntilThePauseIsOver)
{
    EXPECT_FALSE(saisie.EnCours(SaisieRapide::Instant(), 400ms));
    Taper(u"b"_s, 0, 1000ms);
    EXPECT_TRUE(saisie.EnCours(SaisieRapide::Instant() + 1400ms, 400ms));
    EXPECT_FALSE(saisie.EnCours(SaisieRapide::Instant() + 1401ms, 400ms));
}
