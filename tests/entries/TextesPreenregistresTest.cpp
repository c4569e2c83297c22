#include "entries/TextesPreenregistres.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList ListesDe(const ListesDeColonnes& colonnes)
{
    QStringList listes;
    for (const TextesDeColonne& colonne : colonnes)
        listes.append(colonne.liste);
    return listes;
}

const ListesDeColonnes TroisSources{{u"Titre"_s, u"a|b"_s}, {u"Genre"_s, u"rock"_s}, {u"Prix"_s, u"1"_s}};

} // namespace

TEST(TextesPreenregistres, AreEmptyTogetherOnlyWhenAllAre)
{
    EXPECT_TRUE(SontVides({}));
    EXPECT_TRUE(SontVides({{u"A"_s, u""_s}, {u"B"_s, u""_s}}));
    EXPECT_FALSE(SontVides({{u"A"_s, u""_s}, {u"B"_s, u"x"_s}}));
}

TEST(TextesPreenregistres, ALineIsTheTitleATabAndTheList)
{
    EXPECT_EQ(EntetePreenregistres(), u"[Zelvane-TxtPRE]\r\n"_s);
    EXPECT_EQ(LignePreenregistree({u"Titre"_s, u"a|b"_s}), u"Titre\ta|b\r\n"_s);
}

TEST(TextesPreenregistres, AreReadBack)
{
    const auto lus = LirePreenregistres(u"[Zelvane-TxtPRE]\r\nTitre\ta|b\r\nGenre\t\r\n"_s);
    ASSERT_TRUE(lus);
    EXPECT_EQ(TitresDe(*lus), QStringList({u"Titre"_s, u"Genre"_s}));
    EXPECT_EQ(ListesDe(*lus), QStringList({u"a|b"_s, u""_s}));
}

TEST(TextesPreenregistres, ATextOfAnotherKindIsNone)
{
    for (const QString& texte : {u""_s, u"Bonjour"_s, u"[Zelvane]\r\nA\tx\r\n"_s, u"[zelvane-txtpre]\r\nA\tx\r\n"_s,
                                 u"[Zelvane-TxtPRE] \r\nA\tx\r\n"_s, u"[Zelvane-TxtPRE]\nA\tx\n"_s})
        EXPECT_FALSE(LirePreenregistres(texte)) << texte.toStdString();
}

TEST(TextesPreenregistres, WhatStandsBehindTheLastLineEndIsNoLine)
{
    EXPECT_TRUE(LirePreenregistres(u"[Zelvane-TxtPRE]"_s)->empty());
    EXPECT_TRUE(LirePreenregistres(u"[Zelvane-TxtPRE]\r\n"_s)->empty());
    EXPECT_EQ(ListesDe(*LirePreenregistres(u"[Zelvane-TxtPRE]\r\nA\tx\r\nB\ty"_s)), QStringList({u"x"_s}));
}

TEST(TextesPreenregistres, OnlyTheSecondFieldIsTheList)
{
    EXPECT_EQ(ListesDe(*LirePreenregistres(u"[Zelvane-TxtPRE]\r\nA\r\nB\tx\ty\r\n\r\n\tz\r\n"_s)),
              QStringList({u""_s, u"x"_s, u""_s, u"z"_s}));
}

TEST(TextesPreenregistres, AListNeverHasALineBreak)
{
    EXPECT_EQ(ListesDe(*LirePreenregistres(u"[Zelvane-TxtPRE]\r\nA\tx\ny\rz\u2028w\r\n"_s)),
              QStringList({u"x y z w"_s}));
}

TEST(TextesPreenregistres, ComeBehindThoseThatAColumnHas)
{
    ListesDeColonnes colonnes{{u"Nom"_s, u"z"_s}, {u"Style"_s, u""_s}, {u"Note"_s, u"a"_s}};
    CollerPreenregistres(colonnes, TroisSources, Correspondre(TitresDe(TroisSources), TitresDe(colonnes)));
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"z|a|b"_s, u"rock"_s, u"a|1"_s})) << "nothing is merged";
    EXPECT_EQ(TitresDe(colonnes), QStringList({u"Nom"_s, u"Style"_s, u"Note"_s}));
}

TEST(TextesPreenregistres, GoWhereTheUserMovedThem)
{
    ListesDeColonnes colonnes{{u"Nom"_s, u""_s}, {u"Style"_s, u""_s}, {u"Note"_s, u""_s}};
    Correspondance rangs = Correspondre(TitresDe(TroisSources), TitresDe(colonnes));
    rangs.departs.swapItemsAt(0, 2);
    CollerPreenregistres(colonnes, TroisSources, rangs);
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"1"_s, u"rock"_s, u"a|b"_s}));
}

TEST(TextesPreenregistres, ASourceWithoutATargetIsLost)
{
    ListesDeColonnes colonnes{{u"Nom"_s, u""_s}, {u"Style"_s, u""_s}};
    CollerPreenregistres(colonnes, TroisSources, Correspondre(TitresDe(TroisSources), TitresDe(colonnes)));
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"a|b"_s, u"rock"_s}));
}

TEST(TextesPreenregistres, ATargetWithoutASourceStaysAsItIs)
{
    const ListesDeColonnes sources{{u"A"_s, u"x"_s}, {u"B"_s, u"y"_s}};
    ListesDeColonnes colonnes{{u"C"_s, u"1"_s}, {u"D"_s, u"2"_s}, {u"E"_s, u"3"_s}};
    Correspondance rangs = Correspondre(TitresDe(sources), TitresDe(colonnes));
    rangs.departs.swapItemsAt(1, 2); // "<vide>" stands in the second row now
    CollerPreenregistres(colonnes, sources, rangs);
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"1|x"_s, u"2"_s, u"3"_s})) << "rows beyond the sources are not read";
}

TEST(TextesPreenregistres, NoneIsTakenWhenTheFirstRowIsEmpty)
{
    const ListesDeColonnes sources{{u"A"_s, u"x"_s}, {u"B"_s, u"y"_s}};
    ListesDeColonnes colonnes{{u"C"_s, u""_s}, {u"D"_s, u""_s}, {u"E"_s, u""_s}};
    Correspondance rangs = Correspondre(TitresDe(sources), TitresDe(colonnes));
    rangs.departs.swapItemsAt(0, 2);
    CollerPreenregistres(colonnes, sources, rangs);
    EXPECT_EQ(ListesDe(colonnes), QStringList({u""_s, u""_s, u""_s}));
}

TEST(TextesPreenregistres, NothingComesOfNoRows)
{
    ListesDeColonnes colonnes{{u"C"_s, u"x"_s}};
    CollerPreenregistres(colonnes, TroisSources, {});
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"x"_s}));
}

TEST(TextesPreenregistres, ANumberBeyondTheSourcesIsPassedOver)
{
    const ListesDeColonnes sources{{u"A"_s, u"x"_s}};
    ListesDeColonnes colonnes{{u"C"_s, u"1"_s}};
    CollerPreenregistres(colonnes, sources, {{u"(7)A"_s}, {u"(1)C"_s}});
    EXPECT_EQ(ListesDe(colonnes), QStringList({u"1"_s}));
}

TEST(TextesPreenregistres, TextsAreTakenOutByPosition)
{
    const QStringList textes{u"a"_s, u""_s, u"c"_s, u"d"_s};
    EXPECT_EQ(SansTextes(textes, {0, 3}), QStringList({u""_s, u"c"_s}));
    EXPECT_EQ(SansTextes(textes, {}), textes);
    EXPECT_EQ(SansTextes(textes, {0, 1, 2, 3}), QStringList());
}
