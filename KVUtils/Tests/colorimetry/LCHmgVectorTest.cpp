#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>

namespace kv::test {

static LCHmgVector Mg(double L, double C, double h) { return LCHmgVector(LABVector(LCh(L, C, h))); }

TEST(LCHmgVector, ScaleIsTheIntegralOfTheCmcWeights) {
    for (auto const& [L, mg] :
         Rows<double, double>{{0, 0}, {15.99999, 31.3111}, {16, 31.3111}, {100, 112.2186}})
        EXPECT_NEAR(Mg(L, 0, 0)[0], mg, 1e-3) << L;
    EXPECT_NEAR(Mg(0, 0, 0)[1], 0, 5e-4);  // constants of five decimals
    for (double x = 2; x < 98; x += 4) {
        double const SL = x < 16 ? 0.511 : 0.040975 * x / (1 + 0.01765 * x);
        double const SC = 0.0638 * x / (1 + 0.0131 * x) + 0.638;
        // Over a step of 1; the curvature adds up to 2e-3 at small chroma.
        EXPECT_NEAR(Mg(x + 0.5, 0, 0)[0] - Mg(x - 0.5, 0, 0)[0], 1 / SL, 2e-3) << x;
        EXPECT_NEAR(Mg(50, x + 0.5, 90)[1] - Mg(50, x - 0.5, 90)[1], 1 / SC, 2e-3) << x;
    }
    // Worked out from the series; at 90 degrees 0.13893 + 0.04029 + 0.06742 + 0.00587 + 0.17914 radians are
    // added.
    for (auto const& [h, mg] : Rows<double, double>{{360, 360},
                                                    {22.5, 22.602747},
                                                    {45, 52.803231},
                                                    {90, 114.731723},
                                                    {180, 180 + 0.23518 * 57.29578}})
        EXPECT_NEAR(Mg(50, 20, h)[2], mg, 1e-3) << h;
    for (double h = 1; h < 360; ++h)
        EXPECT_GT(Mg(50, 20, h)[2], Mg(50, 20, h - 0.5)[2]) << "the series rises";
    ExpectNear(LABmgVector(LCHmgVector(50, 10, 120, {})), {50, -5, 8.660254}, 1e-5);
    ExpectNear(LCHmgVector(LABmgVector(1, 0, 0, {})), {1, 0, 360}, 0);
}

TEST(LCHmgVector, SearchComesBackToAThousandthOfTheScale) {
    Random random(1984);
    double most = 0, mostHue = 0;
    for (int round = 0; round < 2000; ++round) {
        LCHmgVector const mg = Mg(random(0, 100), random(1, 150), random(0.5, 359));
        LCHmgVector const again{LABVector(LChVector(mg))};
        for (int i = 0; i < 3; ++i) {
            double const miss = std::fabs(double{again[i]} - mg[i]);
            // The search ends at 0.001; a hue and a chroma pass through a* and b* on the way.
            ASSERT_LE(miss, 0.0012) << "seed 1984, round " << round << ", component " << i;
            most = std::max(most, miss);
        }
        // Just below 360 its float variables miss by up to 0.45 degrees.
        double const h = random(359, 360);
        double const missed = std::fabs(std::remainder(LChVector(Mg(50, 30, h))[2] - h, 360.0));
        ASSERT_LE(missed, 0.45) << "seed 1984, round " << round;
        mostHue = std::max(mostHue, missed);
    }
    RecordProperty("largestDeviation", std::to_string(most));
    RecordProperty("largestHueDeviationBelow360", std::to_string(mostHue));
    EXPECT_EQ(LChVector(LCHmgVector(50, 20, 0, {}))[2], 0.0F) << "a hue that was searched can be 0";
}

}  // namespace kv::test
