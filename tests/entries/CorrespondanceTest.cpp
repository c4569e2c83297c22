#include "entries/Correspondance.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Correspondance, NumbersBothSidesFromOne)
{
    const Correspondance c = Correspondre({u"Titre"_s, u"Auteur"_s}, {u"Nom"_s, u"Prix"_s});
    EXPECT_EQ(c.departs, QStringList({u"(1)Titre"_s, u"(2)Auteur"_s}));
    EXPECT_EQ(c.arrivees, QStringList({u"(1)Nom"_s, u"(2)Prix"_s}));
    EXPECT_EQ(c.Rangs(), 2);
}

TEST(Correspondance, FillsUpTheSideThatIsShorter)
{
    EXPECT_EQ(Correspondre({u"A"_s}, {u"B"_s, u"C"_s, u"D"_s}).departs,
              QStringList({u"(1)A"_s, u"<vide>"_s, u"<vide>"_s}));
    EXPECT_EQ(Correspondre({u"A"_s, u"B"_s, u"C"_s}, {u"D"_s}).arrivees,
              QStringList({u"(1)D"_s, u"<perdu>"_s, u"<perdu>"_s}));
}

TEST(Correspondance, TellsTheSourceOfARow)
{
    Correspondance c = Correspondre({u"A"_s, u"B"_s}, {u"C"_s, u"D"_s, u"E"_s});
    c.departs.swapItemsAt(0, 2);
    EXPECT_EQ(c.Source(1), 0) << "<vide>";
    EXPECT_EQ(c.Source(2), 2);
    EXPECT_EQ(c.Source(3), 1);
    EXPECT_EQ(c.Source(0), 0);
    EXPECT_EQ(c.Source(4), 0);
}

TEST(Correspondance, ATitleMayHoldABracketOrALineBreak)
{
    const Correspondance c = Correspondre({u"Prix (€)"_s, u"a\nb"_s}, {});
    EXPECT_EQ(c.Source(1), 1);
    EXPECT_EQ(c.departs[1], u"(2)a b"_s);
}

TEST(Correspondance, ACellWithoutANumberNamesNoSource)
{
    EXPECT_FALSE(DesigneUneSource(u"<vide>"));
    EXPECT_TRUE(DesigneUneSource(u"(vide)")) << "as a translation may have it";
    for (const QStringView cellule : {u"", u")", u"()", u"(vide)", u"(-1)a", u"(0)a", u"(1", u"(99999999999999999999)"})
        EXPECT_EQ(NumeroDeSource(cellule), 0) << cellule.toString().toStdString();
}
