#include "Apps/evaluation/Summary.h"
#include "gtest/gtest.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace evaluation::test {

TEST(SummaryTest, PercentileByNearestRank) {
    struct Case {
        int count;
        float percentile;
    };
    // Of 1, 2, ... n.
    for (Case const& c :
         {Case{1, 1}, {2, 2}, {19, 19}, {20, 19}, {21, 20}, {40, 38}, {41, 39}, {100, 95}, {101, 96}}) {
        std::vector<float> values(static_cast<std::size_t>(c.count));
        std::iota(values.rbegin(), values.rend(), 1.0F);
        auto const summary = Summarise(values).value();
        EXPECT_EQ(summary.percentile95, c.percentile) << c.count;
        EXPECT_EQ(summary.mean, (static_cast<float>(c.count) + 1) / 2);
        EXPECT_EQ(summary.maximum, static_cast<float>(c.count));
        EXPECT_EQ(summary.whereMaximum, 0U);
    }
}

TEST(SummaryTest, IgnoresWhatIsNotFinite) {
    float const nan = std::nanf("");
    float const inf = std::numeric_limits<float>::infinity();
    auto const summary = Summarise(std::vector{nan, -3.0F, inf, -1.0F, -1.0F}).value();
    EXPECT_EQ(summary.count, 3U);
    EXPECT_EQ(summary.maximum, -1.0F);
    EXPECT_EQ(summary.whereMaximum, 3U);
    EXPECT_FALSE(Summarise(std::vector{nan}).has_value());
    EXPECT_FALSE(Summarise({}).has_value());
}

}  // namespace evaluation::test
