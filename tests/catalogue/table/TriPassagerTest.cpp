#include "catalogue/table/TriPassager.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace {

class TriPassagerTest : public testing::Test
{
protected:
    TriPassagerTest()
    {
        MettreColonnes(table, {"Titre", "Genre"});
        AjouterEntrees(table, {{"c", "1"}, {"a", "3"}, {"b", "2"}, {"a", "1"}});
    }
    void Trier(int cle, int sens)
    {
        table.SetSortKey(cle);
        table.SetSortOrder(sens);
        table.SetSorted(true);
    }

    MyLV table;
};

} // namespace

TEST_F(TriPassagerTest, SortsAscendingByTheColumnAsLongAsItLives)
{
    Trier(0, 1);
    {
        const TriPassager tri(table, 1);
        EXPECT_EQ(ColonneDe(table, 2), QStringList({"1", "1", "2", "3"}));
        EXPECT_TRUE(table.Sorted());
        EXPECT_EQ(table.SortKey(), 1);
        EXPECT_EQ(table.SortOrder(), 0);
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"c", "b", "a", "a"}));
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(table.SortOrder(), 1);
    EXPECT_TRUE(table.Sorted());
}

TEST_F(TriPassagerTest, GivesEntriesOfOneValueTheOrderBackThatTheyHad)
{
    Trier(0, 0);
    ASSERT_EQ(ClesDe(table), QStringList({"k2", "k4", "k3", "k1"}));
    {
        const TriPassager tri(table, 1);
        ASSERT_EQ(ClesDe(table), QStringList({"k4", "k1", "k3", "k2"}));
    }
    EXPECT_EQ(ClesDe(table), QStringList({"k2", "k4", "k3", "k1"}));
}

TEST_F(TriPassagerTest, ATableThatWasNotSortedIsSortedByItsKeyFromThenOn)
{
    ASSERT_FALSE(table.Sorted());
    {
        const TriPassager tri(table, 1);
    }
    EXPECT_TRUE(table.Sorted());
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "a", "b", "c"}));
}

TEST_F(TriPassagerTest, AKeyThatNamesNoColumnLeavesTheOrderThatWas)
{
    Trier(7, 0);
    {
        const TriPassager tri(table, 1);
        ASSERT_EQ(ColonneDe(table, 2), QStringList({"1", "1", "2", "3"}));
    }
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3", "k4"}));
    EXPECT_EQ(table.SortKey(), 7);
}

TEST_F(TriPassagerTest, SelectionAndFocusStayWithTheirEntries)
{
    table.ListItems(1).SetSelected(true);
    table.SetSelectedItem(table.ListItems(2));
    const TriPassager tri(table, 0);
    EXPECT_EQ(table.PremiereSelection(), 4);
    EXPECT_EQ(table.SelectedItem().Key(), "k2");
}

TEST_F(TriPassagerTest, NoticesThatAValueWasWritten)
{
    Trier(0, 0);
    {
        const TriPassager tri(table, 1);
        EXPECT_TRUE(tri.EstIntacte());
        table.Selectionner(1, 2, true);
        EXPECT_TRUE(tri.EstIntacte()) << "the selection is no matter";
        table.ListItems(1).SetText("z");
        EXPECT_FALSE(tri.EstIntacte());
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c", "z"})) << "its sort comes back all the same";
}

TEST_F(TriPassagerTest, SortsBackAlsoAfterEntriesCameAndWent)
{
    Trier(0, 0);
    {
        const TriPassager tri(table, 1);
        table.ListItems.Remove("k3");
        table.ListItems.Add(0, "k8", "bb");
        table.ListItems.Add(0, "k9", "aa");
        EXPECT_FALSE(tri.EstIntacte());
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "a", "aa", "bb", "c"}));
}

TEST_F(TriPassagerTest, LeavesATableAloneThatSomebodyElseHasSorted)
{
    Trier(0, 0);
    {
        const TriPassager tri(table, 1);
        table.SetSortOrder(1);
    }
    EXPECT_EQ(table.SortKey(), 1);
    EXPECT_EQ(table.SortOrder(), 1);
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"3", "2", "1", "1"}));
    {
        const TriPassager tri(table, 0);
        table.SetSortKey(1);
    }
    EXPECT_EQ(table.SortKey(), 1);
    EXPECT_EQ(table.SortOrder(), 0);
}

TEST_F(TriPassagerTest, ReadsNothingOfATableThatHasGone)
{
    auto autre = std::make_unique<MyLV>();
    MettreColonnes(*autre, {"Titre"});
    AjouterEntrees(*autre, {{"b"}, {"a"}});
    std::optional<TriPassager> tri(std::in_place, *autre, 0);
    autre.reset();
    EXPECT_FALSE(tri->EstIntacte());
    tri.reset();
}

TEST_F(TriPassagerTest, BothSortsStayOnTheirColumnsWhenThoseMove)
{
    Trier(1, 1);
    {
        const TriPassager tri(table, 0);
        table.SuivreColonnes([](int colonne) { return 1 - colonne; });
        EXPECT_EQ(table.SortKey(), 1);
        EXPECT_FALSE(tri.EstIntacte());
    }
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(table.SortOrder(), 1);
    EXPECT_TRUE(table.Sorted());
}

TEST_F(TriPassagerTest, AColumnThatGoesTakesItsSortAlongAndNoOther)
{
    Trier(1, 1);
    table.ColumnHeaders(2).SetIcon("up");
    const auto premierePart = [](int colonne) { return colonne - 1; };
    {
        const TriPassager tri(table, 0);
        table.SuivreColonnes(premierePart);
    }
    EXPECT_TRUE(table.Sorted()) << "by the column by which it was sorted before";
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(table.SortOrder(), 1);
    EXPECT_EQ(table.ColumnHeaders(2).Icon(), "up");
    {
        const TriPassager tri(table, 1);
        table.SuivreColonnes(premierePart);
        EXPECT_EQ(table.SortKey(), 0);
        EXPECT_TRUE(table.Sorted());
        EXPECT_EQ(table.ColumnHeaders(2).Icon(), "") << "no order to come is marked";
    }
    EXPECT_FALSE(table.Sorted());
    EXPECT_EQ(table.SortKey(), 0);
    EXPECT_EQ(table.SortOrder(), 0);
}

TEST_F(TriPassagerTest, OfSortsThatPassTheFirstOneKnowsTheUsersOwn)
{
    Trier(1, 0);
    table.ColumnHeaders(2).SetIcon("down");
    const auto perdre = [](int perdue) { return [perdue](int colonne) { return colonne == perdue ? -1 : colonne; }; };
    const TriPassager un(table, 0);
    const TriPassager deux(table, 1);
    table.SuivreColonnes(perdre(0));
    EXPECT_EQ(table.ColumnHeaders(2).Icon(), "down") << "only a sort that passes has lost its column";
    table.SuivreColonnes(perdre(1));
    EXPECT_EQ(table.ColumnHeaders(2).Icon(), "");
}
