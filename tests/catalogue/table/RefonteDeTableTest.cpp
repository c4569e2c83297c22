#include "catalogue/table/RefonteDeTable.h"

#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

using stockage::Cellule;
using stockage::Codage;
using Cellules = std::vector<Cellule>;

namespace {

/// Three columns and entries of every length, as lines of a file.
class RefonteTest : public testing::Test
{
protected:
    RefonteTest()
    {
        TexteDeCatalogue texte;
        texte.cleDeTri = "99";
        texte.colonnes = {"A|1000|", "B|1000|", "Prêté|600|"};
        texte.entrees = {"é|b|c|image.jpg", "court", "un|deux", "1|2|3|", "x|y|z|i.jpg|de trop"};
        document.Charger(texte.Texte());
    }

    /// Removes the second cell.
    static void Retirer(Cellules& cellules)
    {
        if (cellules.size() > 1)
            cellules.erase(cellules.begin() + 1);
    }
    bool Refaire(const RefonteDeTable::Travail& travail, Codage codage = Codage::Cp1252)
    {
        RefonteDeTable refonte(table, codage, travail);
        while (refonte.Avancer(2)) {
        }
        return refonte.Poser();
    }
    QStringList Premiers(int cellules) const
    {
        QStringList lignes;
        for (int i = 1; i <= table.ListItems.Count(); ++i)
            lignes.append(table.ListItems(i).Valeurs().first(cellules).join('|'));
        return lignes;
    }

    DocumentDeTest document;
    MyLV& table = document.table;
};

} // namespace

TEST_F(RefonteTest, TheTableKeepsItsCellsUntilTheNewOnesArePut)
{
    const QStringList avant = Premiers(3);
    const uint64_t generation = table.Generation();
    RefonteDeTable refonte(table, Codage::Cp1252, Retirer);
    EXPECT_TRUE(refonte.Avancer(2));
    EXPECT_EQ(refonte.Fait(), 2);
    EXPECT_FALSE(refonte.Poser()) << "not all are done";
    EXPECT_FALSE(refonte.Avancer(99));
    EXPECT_EQ(refonte.Fait(), 5);
    EXPECT_EQ(Premiers(3), avant);
    EXPECT_EQ(table.Generation(), generation);
    EXPECT_TRUE(refonte.Poser());
    EXPECT_EQ(Premiers(3), QStringList({"é|c|", "court||", "un||", "1|3|", "x|z|"}));
    EXPECT_NE(table.Generation(), generation);
}

TEST_F(RefonteTest, EntriesStaySlicesOfOneText)
{
    ASSERT_TRUE(Refaire(Retirer));
    EXPECT_EQ(table.CodageSource(), Codage::Cp1252);
    EXPECT_EQ(table.ColonnesSource(), 2);
    for (int i = 1; i <= 5; ++i)
        EXPECT_TRUE(table.StockageDe(i).EstTranche()) << i;
    EXPECT_EQ(table.StockageDe(1).Tranche(), "\xE9|c|image.jpg");
    EXPECT_EQ(table.StockageDe(3).Tranche(), "un");
    EXPECT_EQ(table.StockageDe(5).Tranche(), "x|z|i.jpg");
    EXPECT_TRUE(table.StockageDe(4).EstReguliere());
    EXPECT_FALSE(table.StockageDe(3).EstReguliere());
    EXPECT_FALSE(table.ListItems(3).ListSubItems(1));
    EXPECT_EQ(table.ListItems(5).Tag(), "i.jpg");
    EXPECT_EQ(table.ListItems(2).Tag(), "");
}

TEST_F(RefonteTest, EditedEntriesGoBackIntoTheTextWhereTheyCan)
{
    table.ListItems(1).SetText("ASCII");
    table.ListItems(2).SetText("été");
    table.ListItems(3).SetText("a|b");
    table.ListItems(4).SetText("a\nb");
    table.ListItems(5).SetTag("a|b.jpg");
    table.ListItems.Add(0, "k6", "日本");
    ASSERT_TRUE(Refaire(Retirer));
    EXPECT_EQ(Premiers(2), QStringList({"ASCII|c", "été|", "a|b|", "a\nb|3", "x|z", "日本|"}));
    EXPECT_TRUE(table.StockageDe(1).EstTranche());
    for (int i = 2; i <= 6; ++i)
        EXPECT_FALSE(table.StockageDe(i).EstTranche()) << i;
    EXPECT_EQ(table.ListItems(1).Tag(), "image.jpg");
    EXPECT_EQ(table.ListItems(5).Tag(), "a|b.jpg");
}

TEST_F(RefonteTest, UtfEightTakesThemAll)
{
    table.ListItems(2).SetText("日本");
    ASSERT_TRUE(Refaire(Retirer, Codage::Utf8));
    EXPECT_EQ(table.CodageSource(), Codage::Utf8);
    EXPECT_EQ(Premiers(2), QStringList({"é|c", "日本|", "un|", "1|3", "x|z"}));
    for (int i = 1; i <= 5; ++i)
        EXPECT_TRUE(table.StockageDe(i).EstTranche()) << i;
}

TEST_F(RefonteTest, CellsThatWereNeverWrittenStaySo)
{
    table.ListItems(2).SetSubItems(2, "loin");
    ASSERT_TRUE(Refaire([](Cellules&) {}));
    EXPECT_FALSE(table.ListItems(2).ListSubItems(1));
    EXPECT_EQ(table.ListItems(2).ListSubItems(2), std::optional<QString>("loin"));
    EXPECT_EQ(table.ListItems(3).ListSubItems(1), std::optional<QString>("deux"));
    EXPECT_FALSE(table.ListItems(3).ListSubItems(2));
}

TEST_F(RefonteTest, AnImageKeepsItsPlaceBehindCellsThatWereNotThere)
{
    const auto ecrire = [](Cellules& cellules) {
        cellules.resize(4);
        cellules[3] = {"neuf", 4, Codage::Cp1252, true};
    };
    ASSERT_TRUE(Refaire(ecrire));
    MettreColonnes(table, {"D"});
    EXPECT_EQ(Premiers(4), QStringList({"é|b|c|neuf", "court|||neuf", "un|deux||neuf", "1|2|3|neuf", "x|y|z|neuf"}));
    EXPECT_EQ(table.ListItems(1).Tag(), "image.jpg");
    EXPECT_EQ(table.StockageDe(1).Tranche(), "\xE9|b|c|neuf|image.jpg");
}

TEST_F(RefonteTest, AnEntryOfFewCellsKeepsItsImage)
{
    table.ListItems.Add(0, "k6", "seul").SetTag("seul.jpg");
    ASSERT_TRUE(Refaire(Retirer));
    EXPECT_EQ(table.ListItems(6).Text(), "seul");
    EXPECT_EQ(table.ListItems(6).Tag(), "seul.jpg");
    EXPECT_FALSE(table.ListItems(6).ListSubItems(1));
}

TEST_F(RefonteTest, WhatBecomesABlockIsNoLineAnyMore)
{
    ASSERT_TRUE(table.StockageDe(1).EstReguliere());
    ASSERT_TRUE(Refaire([](Cellules& cellules) { cellules[0] = {"\xE6\x97\xA5", 3, Codage::Utf8, true}; }));
    for (int i = 1; i <= 5; ++i) {
        EXPECT_FALSE(table.StockageDe(i).EstTranche()) << i;
        EXPECT_FALSE(table.StockageDe(i).EstReguliere()) << i;
        EXPECT_EQ(table.ListItems(i).Text(), "日");
    }
}

TEST_F(RefonteTest, AChangeAfterTheLastEntryCountsToo)
{
    RefonteDeTable refonte(table, Codage::Cp1252, Retirer);
    EXPECT_FALSE(refonte.Avancer(9));
    table.ListItems(1).SetText("autre");
    EXPECT_FALSE(refonte.Poser());
    EXPECT_EQ(Premiers(3).first(), "autre|b|c");
}

TEST_F(RefonteTest, TheSelectionMayChangeMeanwhile)
{
    table.ListItems(1).SetSelected(true);
    RefonteDeTable refonte(table, Codage::Cp1252, Retirer);
    refonte.Avancer(5);
    table.ListItems(1).SetSelected(false);
    table.ListItems(4).SetSelected(true);
    EXPECT_TRUE(refonte.Poser());
    EXPECT_EQ(table.NombreDeSelectionnees(), 1);
    EXPECT_EQ(table.PremiereSelection(), 4);
}

TEST_F(RefonteTest, ATableThatChangedIsLeftAlone)
{
    table.ListItems(3).SetText("a|b"); // a block in the new cells too
    RefonteDeTable refonte(table, Codage::Cp1252, Retirer);
    EXPECT_TRUE(refonte.Avancer(4));
    table.ListItems(1).SetText("autre");
    EXPECT_FALSE(refonte.Avancer(4));
    EXPECT_EQ(refonte.Fait(), 4);
    EXPECT_FALSE(refonte.Poser());
    EXPECT_EQ(Premiers(3), QStringList({"autre|b|c", "court||", "a|b|deux|", "1|2|3", "x|y|z"}));
}

TEST_F(RefonteTest, OrderKeysAndMarkersStay)
{
    table.SetSortKey(0);
    table.SetSortOrder(1);
    table.SetSorted(true);
    const QStringList cles = ClesDe(table);
    ASSERT_EQ(cles.first(), "k5");
    ASSERT_TRUE(Refaire(Retirer));
    EXPECT_EQ(ClesDe(table), cles);
    EXPECT_EQ(table.ListItems(1).Text(), "x");
    EXPECT_EQ(table.ListItems("k1").SmallIcon(), "icoerror");
    EXPECT_EQ(table.ListItems("k2").SmallIcon(), "noico");
    table.ListItems.Remove(QStringLiteral("k3"));
    ASSERT_TRUE(Refaire(Retirer));
    EXPECT_EQ(table.ListItems.Count(), 4);
    EXPECT_EQ(table.ListItems("k4").Text(), "1");
}

TEST_F(RefonteTest, TablesWithoutATextAndWithoutEntriesAreTakenToo)
{
    MyLV neuve;
    MettreColonnes(neuve, {"A", "B"});
    {
        RefonteDeTable refonte(neuve, neuve.CodageSource(), Retirer);
        EXPECT_FALSE(refonte.Avancer(1));
        EXPECT_TRUE(refonte.Poser());
    }
    AjouterEntrees(neuve, {{"a", "b"}});
    RefonteDeTable refonte(neuve, neuve.CodageSource(), Retirer);
    EXPECT_FALSE(refonte.Avancer(1));
    EXPECT_TRUE(refonte.Poser());
    EXPECT_EQ(neuve.ListItems(1).Valeurs(), QStringList({"a", ""}));
    EXPECT_LT(neuve.Memoire(), 200U);
}

TEST_F(RefonteTest, ObserversAreTold)
{
    struct Observateur : ObservateurTable
    {
        void TableModifiee() override { ++fois; }
        int fois = 0;
    } observateur;
    table.Observer(observateur);
    ASSERT_TRUE(Refaire(Retirer));
    table.NePlusObserver(observateur);
    EXPECT_EQ(observateur.fois, 1);
    const ChangementsTable changements = MyLV::PrendreChangements(observateur);
    EXPECT_TRUE(changements.valeurs);
    EXPECT_EQ(changements.premiere, 1);
    EXPECT_EQ(changements.derniere, 5);
}
