#include "catalogue/table/MyLV.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

namespace {

struct Avertissements : ObservateurTable
{
    int nombre = 0;
    void TableModifiee() override { ++nombre; }
};

QStringList Textes(std::initializer_list<const char*> textes)
{
    QStringList liste;
    for (const char* texte : textes)
        liste.append(QString::fromUtf8(texte));
    return liste;
}

template<class Table>
concept SeLaisseEcrire = requires(Table& table)
{
    table.ListItems(1).SetText(QString());
}
|| requires(Table& table)
{
    table.ListItems(QString()).SetText(QString());
}
|| requires(Table& table)
{
    table.SelectedItem().SetTag(QString());
}
|| requires(Table& table)
{
    table.ListItems.Add(0, QString(), QString());
}
|| requires(Table& table)
{
    table.ColumnHeaders(1).SetText(QString());
};

} // namespace

TEST(MyLV, AnEmptyTableHasNothingToCountSelectOrRenumber)
{
    MyLV table;
    EXPECT_EQ(table.ListItems.Count(), 0);
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
    EXPECT_EQ(table.PremiereSelection(), 0);
    EXPECT_FALSE(table.SelectedItem());
    RecalculerCles(table);
    EXPECT_EQ(table.ListItems.Count(), 0);
    EXPECT_FALSE(table.ListItems(1));
    EXPECT_FALSE(table.ListItems(QStringLiteral("k1")));
}

TEST(MyLV, ColumnsAreNumberedFromOneAndKeepWhatTheyCarry)
{
    MyLV table;
    MettreColonnes(table, {"Titre", "Artiste"});
    ColumnHeader& premiere = table.ColumnHeaders.Add(1, "Rang");
    premiere.SetTag("a|b");
    premiere.SetIcon("up");
    premiere.SetKey("c1");
    EXPECT_TRUE(premiere.SetWidth(1234.5F));
    EXPECT_EQ(table.ColumnHeaders.Count(), 3);
    EXPECT_EQ(table.ColumnHeaders(1).Text(), "Rang");
    EXPECT_EQ(table.ColumnHeaders(1).Tag(), "a|b");
    EXPECT_EQ(table.ColumnHeaders(1).Icon(), "up");
    EXPECT_EQ(table.ColumnHeaders(1).Key(), "c1");
    EXPECT_EQ(table.ColumnHeaders(1).Width(), 1234.5F);
    EXPECT_EQ(table.ColumnHeaders(3).Index(), 3);
    EXPECT_TRUE(table.ColumnHeaders.Remove(1));
    EXPECT_FALSE(table.ColumnHeaders.Remove(3));
    EXPECT_EQ(table.ColumnHeaders(2).Text(), "Artiste");
}

TEST(MyLV, AWidthThatIsNoWidthIsRefused)
{
    MyLV table;
    ColumnHeader& colonne = table.ColumnHeaders.Add();
    EXPECT_FALSE(colonne.SetWidth(-1));
    EXPECT_FALSE(colonne.SetWidth(std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(colonne.SetWidth(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_EQ(colonne.Width(), 1440);
}

TEST(MyLV, ACellExistsOnlyOnceItWasWritten)
{
    MyLV table;
    MettreColonnes(table, {"A", "B", "C", "D"});
    ListItem entree = table.ListItems.Add(0, "k1", "a");
    EXPECT_TRUE(entree.SetSubItems(2, ""));
    EXPECT_EQ(entree.SubItems(1), "");
    EXPECT_FALSE(entree.ListSubItems(1).has_value());
    EXPECT_EQ(entree.ListSubItems(2), std::optional<QString>(QString()));
    EXPECT_FALSE(entree.ListSubItems(3).has_value());
    EXPECT_FALSE(entree.ListSubItems(0).has_value());
}

TEST(MyLV, ACellOutsideTheColumnsIsRefused)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    ListItem entree = table.ListItems.Add(0, "k1", "a");
    EXPECT_FALSE(entree.SetSubItems(0, "x"));
    EXPECT_FALSE(entree.SetSubItems(2, "x"));
    EXPECT_FALSE(entree.EcrireUtf8(0, "x"));
    EXPECT_FALSE(entree.EcrireUtf8(3, "x"));
    EXPECT_EQ(entree.Valeurs(), Textes({"a", ""}));
    EXPECT_TRUE(entree.EcrireUtf8(2, "\xC3\xA9"));
    EXPECT_EQ(entree.Valeurs(), Textes({"a", "é"}));
}

TEST(MyLV, ValuesOfEveryKindComeBackAsWritten)
{
    MyLV table;
    MettreColonnes(table, {"A", "B", "C"});
    const QStringList valeurs = Textes({"un | deux", "日本語 𝄞", "é\r\nà"});
    AjouterEntrees(table, {Textes({"x", "y", "z"})});
    table.ListItems(1).EcrireValeurs(valeurs);
    EXPECT_EQ(table.ListItems(1).Valeurs(), valeurs);
    EXPECT_EQ(table.ListItems(1).Valeur(2), valeurs[1]);
    table.ListItems(1).SetTag("image.jpg");
    EXPECT_EQ(table.ListItems(1).Tag(), "image.jpg");
    EXPECT_EQ(table.ListItems(1).Valeurs(), valeurs);
}

TEST(MyLV, MarkersAreTheThreeNamesAndNothingElse)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    ListItem entree = table.ListItems.Add(0, "k1", "a");
    EXPECT_EQ(entree.SmallIcon(), "");
    for (const char* nom : {"noico", "ico", "icoerror"}) {
        entree.SetSmallIcon(nom);
        EXPECT_EQ(entree.SmallIcon(), nom);
    }
    entree.SetSmallIcon("autre");
    EXPECT_EQ(entree.SmallIcon(), "");
}

TEST(MyLV, EntriesAreFoundByPositionAndByKey)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}});
    table.ListItems.Add(1, "autre", "zéro");
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"zéro", "un", "deux"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k2")).Index(), 3);
    EXPECT_EQ(table.ListItems(QStringLiteral("autre")).Index(), 1);
    EXPECT_FALSE(table.ListItems(QStringLiteral("k02")));
    EXPECT_FALSE(table.ListItems(QStringLiteral("k3")));
    EXPECT_FALSE(table.ListItems(0));
    EXPECT_FALSE(table.ListItems(4));
}

TEST(MyLV, AKeyIsHeldByOneEntryOnly)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}});
    EXPECT_FALSE(table.ListItems.Add(0, "k2", "double"));
    EXPECT_EQ(table.ListItems.Count(), 2);
    EXPECT_FALSE(table.ListItems(1).SetKey("k2"));
    EXPECT_EQ(table.ListItems(1).Key(), "k1");
    EXPECT_TRUE(table.ListItems(1).SetKey("k1"));
    EXPECT_TRUE(table.ListItems(1).SetKey("k900000000"));
    EXPECT_EQ(table.ListItems(QStringLiteral("k900000000")).Text(), "un");
    EXPECT_FALSE(table.ListItems(QStringLiteral("k1")));
    EXPECT_FALSE(table.ListItems.Add(9, "k9", "hors bornes"));
}

TEST(MyLV, AfterDeletingTheSecondOfThreeRenumberingClosesTheGap)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}, {"trois"}});
    EXPECT_TRUE(table.ListItems.Remove(2));
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k3"}));
    RecalculerCles(table);
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k2")).Text(), "trois");
    EXPECT_FALSE(table.ListItems(QStringLiteral("k3")));
}

TEST(MyLV, SortingKeepsKeysAndRenumberingFollowsTheDisplay)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"a"}, {"b"}, {"c"}});
    table.SetSortOrder(1);
    table.SetSorted(true);
    EXPECT_EQ(ClesDe(table), QStringList({"k3", "k2", "k1"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k3")).Index(), 1);
    RecalculerCles(table);
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k1")).Text(), "c");
}

TEST(MyLV, RenumberingPassesOverAStepThatAForeignKeyForbids)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}});
    table.ListItems.Add(0, "z1", "trois");
    table.ListItems.Remove(1);
    // Now: "deux" with k2, "trois" with z1. Position 1 gets k1; k2 is free by then; no "z" key remains.
    RecalculerCles(table);
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2"}));

    MyLV bloquee;
    MettreColonnes(bloquee, {"A"});
    bloquee.ListItems.Add(0, "autre", "un");
    bloquee.ListItems.Add(0, "k1", "deux");
    bloquee.ListItems.Add(0, "z1", "trois");
    // The holder of k1 cannot step aside as z1 is taken, so position 1 cannot have k1.
    RecalculerCles(bloquee);
    EXPECT_EQ(ClesDe(bloquee), QStringList({"autre", "k2", "k3"}));
}

TEST(MyLV, RenumberingGivesPositionsWhateverTheKeysWere)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}, {"trois"}});
    table.ListItems(1).SetKey("k7");
    table.ListItems(2).SetKey("k1");
    RecalculerCles(table);
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k1")).Text(), "un");
    EXPECT_TRUE(table.ListItems.Add(0, "k4", "quatre"));
    EXPECT_FALSE(table.ListItems.Add(0, "k4", "quatre"));
}

TEST(MyLV, SelectionIsCountedAndItsFirstEntryFound)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}, {"trois"}, {"quatre"}});
    table.Selectionner(2, 99, true);
    table.ListItems(3).SetSelected(false);
    EXPECT_EQ(table.NombreDeSelectionnees(), 2);
    EXPECT_EQ(table.PremiereSelection(), 2);
    EXPECT_TRUE(table.EstSelectionnee(4));
    EXPECT_FALSE(table.EstSelectionnee(3));
    table.ListItems.Retirer({2, 4});
    EXPECT_EQ(table.NombreDeSelectionnees(), 0);
    EXPECT_EQ(table.PremiereSelection(), 0);
}

TEST(MyLV, WhoHoldsATableForReadingGetsReadersOnly)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {{"un", "1"}, {"deux", "2"}});
    const MyLV& lue = table;
    EXPECT_EQ(lue.ListItems(2).Text(), "deux");
    EXPECT_EQ(lue.ListItems(2).Valeurs(), Textes({"deux", "2"}));
    EXPECT_EQ(lue.ListItems(QStringLiteral("k2")).SubItems(1), "2");
    EXPECT_EQ(lue.SelectedItem(), lue.ListItems(1)) << "the first one until another gets the focus";
    table.SetSelectedItem(table.ListItems(2));
    EXPECT_EQ(lue.SelectedItem(), lue.ListItems(2));
    EXPECT_FALSE(lue.ListItems(3));
    EXPECT_TRUE(SeLaisseEcrire<MyLV>);
    EXPECT_FALSE(SeLaisseEcrire<const MyLV>);
}

TEST(MyLV, TheFocusStartsOnTheFirstEntryAndSurvivesItsRemoval)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"un"}, {"deux"}, {"trois"}});
    EXPECT_EQ(table.SelectedItem().Text(), "un");
    table.SetSelectedItem(table.ListItems(2));
    table.ListItems.Remove(2);
    EXPECT_EQ(table.SelectedItem().Text(), "trois");
    table.ListItems.Remove(2);
    EXPECT_EQ(table.SelectedItem().Text(), "un");
    table.ListItems.Clear();
    EXPECT_FALSE(table.SelectedItem());
}

TEST(MyLV, RemovedPlacesAreUsedAgainWithoutTheirPast)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {Textes({"un", "1"}), Textes({"deux", "2"})});
    table.ListItems(1).SetSelected(true);
    table.ListItems(1).SetTag("a.jpg");
    table.ListItems.Remove(QStringLiteral("k1"));
    ListItem neuve = table.ListItems.Add(0, "k5", "neuve");
    EXPECT_FALSE(neuve.Selected());
    EXPECT_EQ(neuve.Tag(), "");
    EXPECT_EQ(neuve.SubItems(1), "");
    EXPECT_EQ(neuve.SmallIcon(), "");
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"deux", "neuve"}));
    EXPECT_EQ(neuve.Index(), 2);
}

// ---- Order

TEST(MyLVOrder, FollowsFrenchCollation)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"zèbre"},
                           {"Élan"},
                           {"elan"},
                           {"côté"},
                           {"coté"},
                           {"cote"},
                           {"côte"},
                           {"10"},
                           {"9"},
                           {"-a"},
                           {"a"},
                           {"œuf"},
                           {"of"}});
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"-a", "10", "9", "a", "cote", "coté", "côte", "côté", "elan", "Élan",
                                                "œuf", "of", "zèbre"}));
}

TEST(MyLVOrder, IgnoresCaseAndKeepsEqualTextsAsTheyStoodInBothDirections)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {Textes({"b", "1"}), Textes({"A", "2"}), Textes({"a", "3"}), Textes({"B", "4"})});
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"2", "3", "1", "4"}));
    table.SetSortOrder(1);
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"1", "4", "2", "3"}));
}

TEST(MyLVOrder, LongCommonBeginningsAreToldApart)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    const QString debut(300, u'x');
    AjouterEntrees(table, {{debut + "b"}, {debut}, {debut + "a"}, {debut + "á"}});
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({debut, debut + "a", debut + "á", debut + "b"}));
}

TEST(MyLVOrder, NumbersSortAsText)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"2"}, {"10"}, {"1"}});
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"1", "10", "2"}));
}

TEST(MyLVOrder, AKeyThatNamesNoColumnOrdersNothing)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"b"}, {"a"}});
    EXPECT_TRUE(table.SetSortKey(5));
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "a"}));
    EXPECT_FALSE(table.SetSortKey(-1));
    EXPECT_FALSE(table.SetSortOrder(2));
    EXPECT_EQ(table.SortKey(), 5);
    EXPECT_EQ(table.SortOrder(), 0);
}

TEST(MyLVOrder, AnUnwrittenCellSortsAsTheEmptyText)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {Textes({"un", "z"}), Textes({"deux"}), Textes({"trois", "a"})});
    table.SetSortKey(1);
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"deux", "trois", "un"}));
}

TEST(MyLVOrder, WritingAValueMovesNothingUntilTheOrderIsMadeAgain)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"a"}, {"b"}});
    table.SetSorted(true);
    table.ListItems(1).SetText("z");
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"z", "b"}));
    table.SetSorted(false);
    table.SetSorted(true);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "z"}));
}

TEST(MyLVOrder, AddedEntriesFindTheirPlacesWhenTheOperationEnds)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {Textes({"a", "2"}), Textes({"b", "4"})});
    table.SetSortKey(1);
    table.SetSorted(true);
    {
        AjoutsDansTable ajouts(table);
        AjouterEntrees(table, {Textes({"c", "9"}), Textes({"d", "1"}), Textes({"e", "4"})});
        EXPECT_EQ(ColonneDe(table, 2), QStringList({"2", "4", "9", "1", "4"}));
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"d", "a", "b", "e", "c"}));
    EXPECT_EQ(table.ListItems(QStringLiteral("k4")).Index(), 1);
}

TEST(MyLVOrder, AddedEntriesFindTheirPlacesDescendingToo)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"a"}, {"m"}});
    table.SetSortOrder(1);
    table.SetSorted(true);
    AjouterEntrees(table, {{"b"}, {"z"}});
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"z", "m", "b", "a"}));
}

TEST(MyLVOrder, EntriesAddedInThePlaceOfDeletedOnesStandOnce)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"a"}, {"c"}, {"e"}, {"g"}, {"i"}});
    table.SetSorted(true);
    for (const int place : {1, 2, 2})
        table.ListItems.Remove(place);
    RecalculerCles(table);
    {
        AjoutsDansTable ajouts(table);
        AjouterEntrees(table, {{"b"}, {"d"}, {"f"}});
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "c", "d", "f", "i"}));
}

TEST(MyLVOrder, TheFirstColumnCanBeSortedByAgain)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {Textes({"a", "2"}), Textes({"b", "1"})});
    table.SetSorted(true);
    EXPECT_TRUE(table.SetSortKey(1));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "a"}));
    EXPECT_TRUE(table.SetSortKey(0));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b"}));
}

// ---- Observers

TEST(MyLVObserver, HearsOfManyChangesOnceAndTakesThemAsRanges)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    for (int i = 1; i <= 1000; ++i)
        table.ListItems.Add(0, QStringLiteral("k%1").arg(i), "x");
    EXPECT_EQ(table.ListItems(1).Index(), 1);
    Avertissements avertissements;
    table.Observer(avertissements);

    for (int i = 200; i <= 300; ++i)
        table.ListItems(i).SetText("y");
    EXPECT_EQ(avertissements.nombre, 1);
    ChangementsTable c = MyLV::PrendreChangements(avertissements);
    EXPECT_TRUE(c.valeurs);
    EXPECT_FALSE(c.lignes || c.colonnes || c.selection || c.aspect);
    EXPECT_EQ(c.premiere, 200);
    EXPECT_EQ(c.derniere, 300);

    table.Selectionner(5, 6, true);
    table.SetGridLines(true);
    table.ColumnHeaders(1).SetText("B");
    EXPECT_EQ(avertissements.nombre, 2);
    c = MyLV::PrendreChangements(avertissements);
    EXPECT_TRUE(c.selection && c.aspect && c.colonnes);
    EXPECT_EQ(c.premiere, 5);
    EXPECT_EQ(c.derniere, 6);

    c = MyLV::PrendreChangements(avertissements);
    EXPECT_FALSE(c.lignes || c.colonnes || c.selection || c.aspect || c.valeurs);
    table.NePlusObserver(avertissements);
}

TEST(MyLVObserver, HearsOfASortMarker)
{
    struct : ObservateurTable
    {
        void TableModifiee() override {}
    } observateur;
    MyLV table;
    MettreColonnes(table, {"A"});
    table.Observer(observateur);
    table.ColumnHeaders(1).SetIcon(QStringLiteral("up"));
    EXPECT_TRUE(MyLV::PrendreChangements(observateur).colonnes);
    table.NePlusObserver(observateur);
}

TEST(MyLVObserver, HearsOfEntriesAddedRemovedAndReordered)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    Avertissements avertissements;
    table.Observer(avertissements);
    AjouterEntrees(table, {{"b"}, {"a"}});
    EXPECT_TRUE(MyLV::PrendreChangements(avertissements).lignes);
    table.SetSorted(true);
    EXPECT_TRUE(MyLV::PrendreChangements(avertissements).lignes);
    table.SetSorted(true);
    EXPECT_FALSE(MyLV::PrendreChangements(avertissements).lignes) << "an order that is right already changes nothing";
    table.ListItems.Remove(1);
    EXPECT_TRUE(MyLV::PrendreChangements(avertissements).lignes);
    table.NePlusObserver(avertissements);
}

TEST(MyLVObserver, EachTakesItsOwnChangesAndHearsNothingOnceItHasStopped)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"b"}, {"a"}});
    Avertissements un, autre;
    const MyLV& aLire = table;
    aLire.Observer(un);
    table.ListItems(1).SetText("c");
    aLire.Observer(autre);
    EXPECT_EQ(un.nombre, 1);
    EXPECT_EQ(autre.nombre, 0) << "what came before it is nothing new to it";
    EXPECT_FALSE(MyLV::PrendreChangements(autre).valeurs);
    EXPECT_TRUE(MyLV::PrendreChangements(un).valeurs);

    table.ListItems(2).SetText("d");
    EXPECT_TRUE(MyLV::PrendreChangements(un).valeurs);
    EXPECT_TRUE(MyLV::PrendreChangements(autre).valeurs) << "the other one took only its own";
    aLire.NePlusObserver(un);
    table.SetGridLines(true);
    EXPECT_EQ(un.nombre, 2);
    EXPECT_EQ(autre.nombre, 2);
    EXPECT_FALSE(MyLV::PrendreChangements(un).aspect);
    aLire.NePlusObserver(autre);
}

TEST(MyLVGeneration, GrowsWithEveryChangeOfWhatAFileHolds)
{
    MyLV table;
    MettreColonnes(table, {"A", "B"});
    AjouterEntrees(table, {{"b", ""}, {"a", ""}});
    ListItem entree = table.ListItems(1);
    uint64_t avant = table.Generation();
    const auto grandit = [&](const char* quoi) {
        EXPECT_GT(table.Generation(), avant) << quoi;
        avant = table.Generation();
    };
    EXPECT_GT(avant, 0u);
    entree.SetText("c"), grandit("text");
    entree.SetSubItems(1, "d"), grandit("cell");
    entree.SetTag("image.png"), grandit("image");
    table.ColumnHeaders(1).SetText("C"), grandit("title");
    table.ColumnHeaders(1).SetWidth(500), grandit("width");
    table.ColumnHeaders(1).SetTag("x|y"), grandit("pre-recorded texts");
    table.ColumnHeaders.Add(), grandit("column added");
    table.ColumnHeaders.Remove(3), grandit("column removed");
    table.SetGridLines(true), grandit("grid");
    table.SetSortKey(1), grandit("sort column");
    table.SetSortOrder(1), grandit("sort order");
    table.SetSorted(true), grandit("sorted");
    AjouterEntrees(table, {{"e", ""}}), grandit("entry added");
    table.ListItems.Remove(1), grandit("entry removed");
    table.ListItems.Clear(), grandit("cleared");
}

TEST(MyLVGeneration, StaysWhenOnlyTheSelectionChanges)
{
    MyLV table;
    MettreColonnes(table, {"A"});
    AjouterEntrees(table, {{"b"}, {"a"}});
    const uint64_t avant = table.Generation();

    table.Selectionner(1, 2, true);
    table.ListItems(1).SetSelected(false);
    table.SetSelectedItem(table.ListItems(2));

    EXPECT_EQ(table.Generation(), avant);
}
