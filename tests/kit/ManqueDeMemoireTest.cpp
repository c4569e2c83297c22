#include "kit/ManqueDeMemoire.h"

#include "support/FileDeReponses.h"

#include <gtest/gtest.h>

TEST(ManqueDeMemoire, AStepThatEndsWellSaysNothing)
{
    const FileDeReponses messages;
    EXPECT_EQ(AvecMemoire([] { return 7; }, 0), 7);
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST(ManqueDeMemoire, IsToldAndEndsTheStepAlone)
{
    const FileDeReponses messages;
    EXPECT_EQ(AvecMemoire([]() -> int { throw std::bad_alloc(); }, 3), 3);
    EXPECT_EQ(messages.Cles(), QStringList("msgMemoire"));
}
