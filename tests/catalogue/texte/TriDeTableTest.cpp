#include "catalogue/texte/TriDeTable.h"

#include "catalogue/texte/Categorie.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class TriDeTable : public testing::Test
{
protected:
    void SetUp() override
    {
        MettreColonnes(table, {u"Titre"_s, u"Année"_s});
        AjouterEntrees(table, {{u"B"_s, u"2"_s}, {u"C"_s, u"10"_s}, {u"A"_s, u"2"_s}});
        table.SetSortKey(0);
        table.SetSorted(true);
    }
    QStringList Titres() const { return ColonneDe(table, 1); }
    QString Marque(int colonne) const { return table.ColumnHeaders(colonne).Icon(); }

    Categorie doc;
    MyLV& table = doc.Table;
};

} // namespace

TEST_F(TriDeTable, AClickOnTheSortedColumnTurnsItToDescendingAndUp)
{
    EXPECT_TRUE(TrierParColonne(doc, 1));
    EXPECT_EQ(Titres(), QStringList({"C", "B", "A"}));
    EXPECT_EQ(table.SortOrder(), 1);
    EXPECT_EQ(Marque(1), "up");
}

TEST_F(TriDeTable, AClickOnADescendingColumnTurnsItToAscendingAndDown)
{
    table.SetSortOrder(1);
    EXPECT_TRUE(TrierParColonne(doc, 1));
    EXPECT_EQ(Titres(), QStringList({"A", "B", "C"}));
    EXPECT_EQ(table.SortOrder(), 0);
    EXPECT_EQ(Marque(1), "down");
}

TEST_F(TriDeTable, AnotherColumnIsAlwaysSortedAscendingAtFirst)
{
    TrierParColonne(doc, 1);
    EXPECT_TRUE(TrierParColonne(doc, 2));
    EXPECT_EQ(table.SortKey(), 1);
    EXPECT_EQ(table.SortOrder(), 0);
    EXPECT_EQ(Marque(1), "");
    EXPECT_EQ(Marque(2), "down");
}

TEST_F(TriDeTable, NumbersSortAsText)
{
    TrierParColonne(doc, 2);
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"10", "2", "2"}));
}

TEST_F(TriDeTable, EqualTextsKeepTheOrderTheyHad)
{
    TrierParColonne(doc, 1);
    TrierParColonne(doc, 2);
    EXPECT_EQ(Titres(), QStringList({"C", "B", "A"}));
}

TEST_F(TriDeTable, ATableThatWasNotSortedIsSortedThen)
{
    table.SetSorted(false);
    TrierParColonne(doc, 1);
    EXPECT_TRUE(table.Sorted());
    EXPECT_EQ(Titres(), QStringList({"C", "B", "A"}));
}

TEST_F(TriDeTable, AnOldMarkerOfAnyColumnGoes)
{
    table.ColumnHeaders(1).SetIcon(u"up"_s);
    table.ColumnHeaders(2).SetIcon(u"down"_s);
    TrierParColonne(doc, 2);
    EXPECT_EQ(Marque(1), "");
    EXPECT_EQ(Marque(2), "down");
}

TEST_F(TriDeTable, SortingIsAChangeToBeSaved)
{
    TrierParColonne(doc, 2);
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(TriDeTable, AColumnThatIsNotThereChangesNothing)
{
    EXPECT_FALSE(TrierParColonne(doc, 0));
    EXPECT_FALSE(TrierParColonne(doc, 3));
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(Titres(), QStringList({"A", "B", "C"}));
}

TEST_F(TriDeTable, AnEntryWrittenSinceFindsItsPlaceWhenSortedAgain)
{
    table.ListItems(1).SetText(u"Z"_s);
    EXPECT_EQ(Titres(), QStringList({"Z", "B", "C"}));
    Retrier(table);
    EXPECT_EQ(Titres(), QStringList({"B", "C", "Z"}));
}

TEST_F(TriDeTable, SortingAgainSortsATableThatWasNot)
{
    table.SetSorted(false);
    table.ListItems(1).SetText(u"Z"_s);
    Retrier(table);
    EXPECT_TRUE(table.Sorted());
    EXPECT_EQ(Titres(), QStringList({"B", "C", "Z"}));
}
