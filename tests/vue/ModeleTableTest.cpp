#include "vue/ModeleTable.h"

#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ModeleTableTest : public testing::Test
{
protected:
    ModeleTableTest()
    {
        MettreColonnes(table, {u"Titre"_s, u"Artiste"_s});
        AjouterEntrees(table, {{u"Un"_s, u"A"_s}, {u"Deux"_s, u"B"_s}, {u"Trois"_s, u"C"_s}});
        modele.Rafraichir();
    }

    QString Texte(int ligne, int colonne) const
    {
        return modele.data(modele.index(ligne, colonne), Qt::DisplayRole).toString();
    }
    static bool ADessin(const QVariant& decoration) { return !decoration.value<QIcon>().isNull(); }

    MyLV table;
    ModeleTable modele{table};
};

} // namespace

TEST_F(ModeleTableTest, ShowsTheCellsAndTitlesOfTheTable)
{
    EXPECT_EQ(modele.rowCount(), 3);
    EXPECT_EQ(modele.columnCount(), 2);
    EXPECT_EQ(Texte(0, 0), "Un");
    EXPECT_EQ(Texte(2, 1), "C");
    EXPECT_EQ(modele.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Artiste");
    EXPECT_FALSE(modele.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(ModeleTableTest, ACellHasNoRowsBelowIt)
{
    EXPECT_EQ(modele.rowCount(modele.index(0, 0)), 0);
    EXPECT_EQ(modele.columnCount(modele.index(0, 0)), 0);
}

TEST_F(ModeleTableTest, TheFirstCellCarriesTheMarkerOfTheEntry)
{
    for (const QString& marque : {u"noico"_s, u"ico"_s, u"icoerror"_s}) {
        table.ListItems(2).SetSmallIcon(marque);
        EXPECT_TRUE(ADessin(modele.data(modele.index(1, 0), Qt::DecorationRole))) << marque.toStdString();
        EXPECT_FALSE(ADessin(modele.data(modele.index(1, 1), Qt::DecorationRole)));
    }
    table.ListItems(2).SetSmallIcon(QString());
    EXPECT_FALSE(ADessin(modele.data(modele.index(1, 0), Qt::DecorationRole)));
}

TEST_F(ModeleTableTest, ATitleCarriesTheSortMarkerOfItsColumn)
{
    const auto marque = [this](int colonne) {
        return ADessin(modele.headerData(colonne, Qt::Horizontal, Qt::DecorationRole));
    };
    EXPECT_FALSE(marque(0));
    table.ColumnHeaders(2).SetIcon(u"up"_s);
    EXPECT_FALSE(marque(0));
    EXPECT_TRUE(marque(1));
    table.ColumnHeaders(2).SetIcon(u"down"_s);
    EXPECT_TRUE(marque(1));
}

TEST_F(ModeleTableTest, AThousandChangesAreToldOnce)
{
    const QSignalSpy rafraichi(&modele, &ModeleTable::Rafraichi);
    for (int i = 0; i < 1000; ++i)
        table.ListItems(i % 3 + 1).SetText(QString::number(i));
    EXPECT_EQ(rafraichi.count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(rafraichi.count(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(rafraichi.count(), 1);
}

TEST_F(ModeleTableTest, AskingForTheRefreshLeavesNoneForLater)
{
    const QSignalSpy rafraichi(&modele, &ModeleTable::Rafraichi);
    table.ListItems(1).SetText(u"x"_s);
    modele.Rafraichir();
    QCoreApplication::processEvents();
    EXPECT_EQ(rafraichi.count(), 1);
}

TEST_F(ModeleTableTest, TellsWhichEntriesChanged)
{
    const QSignalSpy changees(&modele, &QAbstractItemModel::dataChanged);
    table.ListItems(2).SetSubItems(1, u"nouveau"_s);
    modele.Rafraichir();
    ASSERT_EQ(changees.count(), 1);
    EXPECT_LE(changees[0][0].toModelIndex().row(), 1);
    EXPECT_GE(changees[0][1].toModelIndex().row(), 1);
    EXPECT_EQ(changees[0][1].toModelIndex().column(), 1);
}

TEST_F(ModeleTableTest, EntriesThatComeAndGoChangeTheCount)
{
    AjouterEntrees(table, {{u"Quatre"_s, u"D"_s}, {u"Cinq"_s, u"E"_s}});
    EXPECT_EQ(modele.rowCount(), 3);
    modele.Rafraichir();
    EXPECT_EQ(modele.rowCount(), 5);
    EXPECT_EQ(Texte(4, 0), "Cinq");
    table.ListItems.Retirer({1, 2, 3});
    modele.Rafraichir();
    EXPECT_EQ(modele.rowCount(), 2);
    EXPECT_EQ(Texte(0, 0), "Quatre");
}

TEST_F(ModeleTableTest, ACellThatIsNoLongerThereIsEmptyUntilTheRefresh)
{
    table.ListItems.Clear();
    EXPECT_EQ(modele.rowCount(), 3);
    EXPECT_FALSE(modele.data(modele.index(2, 0), Qt::DisplayRole).isValid());
    table.ColumnHeaders.Clear();
    EXPECT_FALSE(modele.headerData(1, Qt::Horizontal, Qt::DisplayRole).isValid());
    modele.Rafraichir();
    EXPECT_EQ(modele.rowCount(), 0);
    EXPECT_EQ(modele.columnCount(), 0);
}

TEST_F(ModeleTableTest, AnotherNumberOfColumnsResetsTheViews)
{
    const QSignalSpy remise(&modele, &QAbstractItemModel::modelReset);
    table.ColumnHeaders(1).SetText(u"Album"_s);
    modele.Rafraichir();
    EXPECT_EQ(remise.count(), 0);
    table.ColumnHeaders.Add(0, u"Prêté"_s);
    modele.Rafraichir();
    EXPECT_EQ(remise.count(), 1);
    EXPECT_EQ(modele.columnCount(), 3);
    EXPECT_EQ(Texte(0, 2), "");
}

TEST_F(ModeleTableTest, ATableWithEntriesAndNoColumnsIsNoCell)
{
    table.ColumnHeaders.Clear();
    modele.Rafraichir();
    table.ListItems(1).SetText(u"x"_s);
    AjouterEntrees(table, {{u"Quatre"_s}});
    modele.Rafraichir();
    EXPECT_EQ(modele.rowCount(), 4);
    EXPECT_EQ(modele.columnCount(), 0);
}

TEST(ModeleTable, ATableMayOutliveItsModel)
{
    MyLV table;
    MettreColonnes(table, {u"Titre"_s});
    {
        const ModeleTable modele(table);
    }
    AjouterEntrees(table, {{u"Un"_s}});
    QCoreApplication::processEvents();
    EXPECT_EQ(table.ListItems.Count(), 1);
}
