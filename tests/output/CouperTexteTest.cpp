#include "output/CouperTexte.h"

#include "MesureFixe.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList Couper(const QString& texte, double largeur)
{
    return CouperTexte(texte, largeur, MesureFixe());
}

} // namespace

TEST(CouperTexte, AnEmptyTextIsOneEmptyLine)
{
    EXPECT_EQ(Couper(u""_s, 10), QStringList({""}));
}

TEST(CouperTexte, TheFirstWordHasABlankBeforeIt)
{
    EXPECT_EQ(Couper(u"un"_s, 10), QStringList({" un"}));
    EXPECT_EQ(Couper(u"un deux"_s, 10), QStringList({" un deux"}));
}

TEST(CouperTexte, ALineIsFullWhenItIsAsWideAsTheCell)
{
    EXPECT_EQ(Couper(u"aaa bbb ccc"_s, 8), QStringList({" aaa bbb", "ccc"}));
    EXPECT_EQ(Couper(u"aaa bbb ccc"_s, 7.9), QStringList({" aaa", "bbb ccc"}));
}

TEST(CouperTexte, AFirstWordThatFitsWithoutItsBlankAloneLeavesAnEmptyLine)
{
    EXPECT_EQ(Couper(u"abcdefgh i"_s, 8), QStringList({"", "abcdefgh", "i"}));
}

TEST(CouperTexte, AWordThatIsTooWideBreaksWhereTheLineIsFull)
{
    EXPECT_EQ(Couper(u"x abcdefghij y"_s, 4), QStringList({" x", "abcd", "efgh", "ij", " y"}));
}

TEST(CouperTexte, ATextThatEndsOnSuchAWordEndsOnAnEmptyLine)
{
    EXPECT_EQ(Couper(u"abcdefghij"_s, 4), QStringList({"abcd", "efgh", "ij", ""}));
}

TEST(CouperTexte, ACellNarrowerThanACharacterHasOneALine)
{
    EXPECT_EQ(Couper(u"ab"_s, 0.5), QStringList({"", "a", "b", ""}));
}

TEST(CouperTexte, BlanksInARowStay)
{
    EXPECT_EQ(Couper(u"a  b "_s, 10), QStringList({" a  b "}));
}

TEST(CouperTexte, ACharacterOfTwoUnitsIsNotCutInTwo)
{
    const QString signe = QString::fromUcs4(U"\U0001D11E");
    EXPECT_EQ(Couper(signe + signe, 2), QStringList({signe, signe, ""}));
    EXPECT_EQ(Couper(signe + signe, 1), QStringList({"", signe, signe, ""}));
}
