#include "Groupes.h"

#include <gtest/gtest.h>

namespace {

Groupes DeuxGroupes()
{
    Groupes groupes;
    groupes.Ajouter({1, 4, 6});
    groupes.Ajouter({2, 5});
    groupes.NommerComplete(0, 1);
    groupes.MarquerPretees({false, false, false, false, true, false, true});
    return groupes;
}

} // namespace

TEST(Groupes, KnowTheirRows)
{
    const Groupes groupes = DeuxGroupes();
    EXPECT_EQ(groupes.Count(), 2);
    EXPECT_EQ(groupes.Entrees(), 5);
    EXPECT_EQ(groupes.Taille(0), 3);
    EXPECT_EQ(groupes.Ligne(1, 1), 5);
    EXPECT_TRUE(groupes.EstPretee(1, 1));
    EXPECT_FALSE(groupes.EstPretee(0, 2));
    EXPECT_EQ(Groupes().Count(), 0);
}

TEST(Groupes, AllButTheFirstAreCheckedAndNoneThatIsLent)
{
    Groupes groupes = DeuxGroupes();
    groupes.CocherSauf(Groupes::Gardee::Premiere);
    EXPECT_EQ(groupes.LignesCochees(), std::vector<int>({4, 6}));
    EXPECT_EQ(groupes.NbCoches(), 2);
    EXPECT_EQ(groupes.NbPreteesCochees(), 0);
}

TEST(Groupes, AllButTheMostCompleteAreCheckedInstead)
{
    Groupes groupes = DeuxGroupes();
    groupes.CocherSauf(Groupes::Gardee::Premiere);
    groupes.CocherSauf(Groupes::Gardee::Complete);
    EXPECT_EQ(groupes.LignesCochees(), std::vector<int>({1, 6}));
    groupes.ToutDecocher();
    EXPECT_EQ(groupes.NbCoches(), 0);
    EXPECT_TRUE(groupes.LignesCochees().empty());
}

TEST(Groupes, LentOnesAndWholeGroupsThatAreCheckedAreCounted)
{
    Groupes groupes = DeuxGroupes();
    groupes.Cocher(1, 0, true);
    EXPECT_EQ(groupes.GroupesEntiers(), 0);
    groupes.Cocher(1, 1, true);
    groupes.Cocher(1, 1, true);
    EXPECT_EQ(groupes.NbCoches(), 2) << "checked twice, counted once";
    EXPECT_EQ(groupes.GroupesEntiers(), 1);
    EXPECT_EQ(groupes.NbPreteesCochees(), 1);
}

TEST(Groupes, FollowTheTableAfterADeletion)
{
    Groupes groupes = DeuxGroupes();
    groupes.Ajouter({3, 7, 8});
    groupes.NommerComplete(2, 2);
    groupes.Cocher(1, 0, true); // row 2: one is left of its group
    groupes.Cocher(0, 0, true); // row 1
    groupes.RetirerCochees();
    ASSERT_EQ(groupes.Count(), 2);
    EXPECT_EQ(groupes.Ligne(0, 0), 2);
    EXPECT_EQ(groupes.Ligne(0, 1), 4);
    EXPECT_EQ(groupes.Complete(0), 0) << "row 4 before";
    EXPECT_EQ(groupes.Ligne(1, 0), 1);
    EXPECT_EQ(groupes.Ligne(1, 2), 6);
    EXPECT_EQ(groupes.Complete(1), 2);
    EXPECT_TRUE(groupes.EstPretee(1, 1)) << "row 7 before";
    EXPECT_FALSE(groupes.EstPretee(0, 0));
    EXPECT_EQ(groupes.NbCoches(), 0);
}
