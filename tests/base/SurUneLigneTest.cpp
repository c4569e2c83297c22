#include "base/SurUneLigne.h"

#include "support/Impression.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SurUneLigneTest, EachLineBreakBecomesOneBlank)
{
    EXPECT_EQ(SurUneLigne(u"un\r\ndeux\ntrois\rquatre\u2028cinq\u2029six"_s), "un deux trois quatre cinq six");
}

TEST(SurUneLigneTest, NothingElseIsTouched)
{
    EXPECT_EQ(SurUneLigne(u"un\tdeux  trois"_s), "un\tdeux  trois");
    EXPECT_EQ(SurUneLigne(QString()), "");
}
