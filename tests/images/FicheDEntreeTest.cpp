#include "images/FicheDEntree.h"

#include "support/TableDeTest.h"

#include <gtest/gtest.h>

TEST(FicheDEntree, HoldsEachColumnButTheFirstUnderItsTitle)
{
    MyLV table;
    MettreColonnes(table, {"Titre", "Auteur", "Prêté"});
    AjouterEntrees(table, {{"Kind of Blue", "Davis", "Paul - 01/02/2005"}, {"Blue Train", "Coltrane", ""}});
    EXPECT_EQ(FicheDEntree(table, 1), "<Auteur>\nDavis\n\n<Prêté>\nPaul - 01/02/2005\n\n");
    EXPECT_EQ(FicheDEntree(table, 2), "<Auteur>\nColtrane\n\n<Prêté>\n\n\n");
}

TEST(FicheDEntree, OneColumnLeavesNothingToRepeat)
{
    MyLV table;
    MettreColonnes(table, {"Titre"});
    AjouterEntrees(table, {{"Kind of Blue"}});
    EXPECT_EQ(FicheDEntree(table, 1), "");
}

TEST(FicheDEntree, AnEntryThatIsNotThereHasNone)
{
    MyLV table;
    MettreColonnes(table, {"Titre", "Auteur"});
    AjouterEntrees(table, {{"Kind of Blue", "Davis"}});
    EXPECT_EQ(FicheDEntree(table, 0), "");
    EXPECT_EQ(FicheDEntree(table, 2), "");
}
