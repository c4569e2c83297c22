#include "entries/SaisieDEntree.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TextesDeColonne, AreJoinedWithABar)
{
    EXPECT_EQ(TextesDe(u"rock|jazz|blues"_s), QStringList({"rock", "jazz", "blues"}));
    EXPECT_EQ(TextesDe(u"rock"_s), QStringList({"rock"}));
    EXPECT_EQ(TextesDe(u"rock|"_s), QStringList({"rock", ""}));
    EXPECT_EQ(TextesDe(QString()), QStringList());
}

TEST(TextesDeColonne, ATextIsKnownAsAWholeElementWithItsCase)
{
    EXPECT_TRUE(TexteConnu(u"rock|jazz|blues"_s, u"rock"_s));
    EXPECT_TRUE(TexteConnu(u"rock|jazz|blues"_s, u"jazz"_s));
    EXPECT_TRUE(TexteConnu(u"rock|jazz|blues"_s, u"blues"_s));
    EXPECT_FALSE(TexteConnu(u"rock|jazz"_s, u"Rock"_s));
    EXPECT_FALSE(TexteConnu(u"rock|jazz"_s, u"roc"_s));
    EXPECT_FALSE(TexteConnu(QString(), u"rock"_s));
    EXPECT_TRUE(TexteConnu(u"rock|jazz|blues"_s, u"rock|jazz"_s)) << "two elements in a row look like one text";
}

TEST(TextesDeColonne, AnEmptyTextIsNewToAListThatHasTexts)
{
    EXPECT_TRUE(TexteConnu(QString(), QString()));
    EXPECT_FALSE(TexteConnu(u"rock"_s, QString()));
    EXPECT_TRUE(TexteConnu(u"rock|"_s, QString()));
}

TEST(TextesDeColonne, ANewTextGoesToTheEnd)
{
    EXPECT_EQ(AvecTexte(QString(), u"rock"_s), "rock");
    EXPECT_EQ(AvecTexte(u"rock"_s, u"jazz"_s), "rock|jazz");
    EXPECT_EQ(AvecTexte(u"rock"_s, QString()), "rock|");
    EXPECT_EQ(AvecTexte(u"rock"_s, u"a|b"_s), "rock|a|b");
}

TEST(ValeursDEntree, TheFirstOneWithABarIsFound)
{
    EXPECT_EQ(ValeurInterdite({"a", "b", "c"}), -1);
    EXPECT_EQ(ValeurInterdite({}), -1);
    EXPECT_EQ(ValeurInterdite({"a", "b", "|"}), 2);
    EXPECT_EQ(ValeurInterdite({"a|b", "|", "c"}), 0);
}

TEST(ValeursDEntree, AreNoEntryWhenAllAreEmpty)
{
    EXPECT_TRUE(ToutEstVide({"", "", ""}));
    EXPECT_TRUE(ToutEstVide({}));
    EXPECT_FALSE(ToutEstVide({"", " ", ""})) << "a blank is a value";
}
