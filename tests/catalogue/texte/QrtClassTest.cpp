#include "catalogue/texte/QrtClass.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

TEST(QrtClass, StartsEmptyAndUnchanged)
{
    const QrtClass doc;
    EXPECT_EQ(doc.CheminReel(), "");
    EXPECT_EQ(doc.filename(), "");
    EXPECT_EQ(doc.FileType, "");
    EXPECT_EQ(doc.TmpFolder, "");
    EXPECT_EQ(doc.ScriptChemin, "");
    EXPECT_FALSE(doc.ScriptEdition);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(doc.IndexColPrete, 0);
    EXPECT_EQ(doc.dependantcol, 0);
    EXPECT_EQ(doc.NbSauv(), "0");
    EXPECT_EQ(doc.ItemsCount(), 0);
    EXPECT_EQ(doc.ColCount(), 0);
    EXPECT_EQ(doc.SelItemsCount(), 0);
    EXPECT_TRUE(doc.ZelvaneIni().endsWith("/Zelvane.ini"));
}

TEST(QrtClass, SettingThePathSetsTheFileName)
{
    QrtClass doc;
    doc.SetCheminReel("/home/ida/Mes disques/jazz.qrt");
    EXPECT_EQ(doc.filename(), "jazz.qrt");
    doc.SetCheminReel("");
    EXPECT_EQ(doc.filename(), "");
}

TEST(QrtClass, TheBackupCountTakesNumbersOfSixteenBitsOnly)
{
    QrtClass doc;
    EXPECT_TRUE(doc.SetNbSauv("12"));
    EXPECT_FALSE(doc.SetNbSauv("douze"));
    EXPECT_FALSE(doc.SetNbSauv("40000"));
    EXPECT_FALSE(doc.SetNbSauv(""));
    EXPECT_EQ(doc.NbSauv(), "12");
}

TEST(QrtClass, CountsComeFromTheTable)
{
    DocumentDeTest d;
    MettreColonnes(d.table, {"A", "B"});
    AjouterEntrees(d.table, {{"un"}, {"deux"}, {"trois"}});
    d.table.Selectionner(2, 3, true);
    EXPECT_EQ(d.doc.ItemsCount(), 3);
    EXPECT_EQ(d.doc.ColCount(), 2);
    EXPECT_EQ(d.doc.SelItemsCount(), 2);
    d.doc.ClearLV();
    EXPECT_EQ(d.doc.ItemsCount(), 0);
    EXPECT_EQ(d.doc.ColCount(), 0);
    EXPECT_EQ(d.doc.SelItemsCount(), 0);
}
