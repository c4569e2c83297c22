#include "base/Drapeau.h"

#include <gtest/gtest.h>

TEST(Drapeau, TellsWhenItChangesAndOnlyThen)
{
    Drapeau drapeau;
    int fois = 0;
    bool vu = false;
    drapeau.AChange = [&] {
        ++fois;
        vu = drapeau;
    };
    drapeau = false;
    EXPECT_EQ(fois, 0);
    drapeau = true;
    drapeau = true;
    EXPECT_EQ(fois, 1);
    EXPECT_TRUE(vu) << "it has its new value by then";
    EXPECT_TRUE(std::exchange(drapeau, false));
    EXPECT_EQ(fois, 2);
    EXPECT_FALSE(vu);
}

TEST(Drapeau, ACopyHasTheValueAndNobodyThatFollowsIt)
{
    Drapeau drapeau(true);
    int fois = 0;
    drapeau.AChange = [&] { ++fois; };
    Drapeau copie(drapeau);
    EXPECT_TRUE(copie);
    copie = false;
    EXPECT_EQ(fois, 0);
    drapeau = copie;
    EXPECT_FALSE(drapeau);
    EXPECT_EQ(fois, 1) << "the one that is written to keeps its own";
}
