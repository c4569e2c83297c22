#include "platform/Temps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

std::vector<double> Tirages(uint32_t graine, int nombre)
{
    HasardSysteme hasard;
    hasard.Semer(graine);
    std::vector<double> tirages(static_cast<size_t>(nombre));
    std::generate(tirages.begin(), tirages.end(), [&] { return hasard.Tirer(); });
    return tirages;
}

TEST(HasardSysteme, DrawsFromZeroUpToOneWithoutIt)
{
    const std::vector<double> tirages = Tirages(7, 100000);

    const auto [moins, plus] = std::minmax_element(tirages.begin(), tirages.end());
    EXPECT_GE(*moins, 0.0);
    EXPECT_LT(*plus, 1.0);
    // All of the range is drawn from.
    EXPECT_LT(*moins, 0.001);
    EXPECT_GT(*plus, 0.999);
}

TEST(HasardSysteme, DrawsAnotherSeriesFromAnotherSeed)
{
    EXPECT_EQ(Tirages(1, 10), Tirages(1, 10));
    EXPECT_NE(Tirages(1, 10), Tirages(2, 10));
}

} // namespace
