#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>

namespace kv::test {

TEST(DichteFilter, SumsAndPeaksOfEveryStandard) {
    // The peaks in nm: red, green, blue; none where those filters are empty.
    for (auto const& [standard, peaks] : Rows<int, std::array<int, 3>>{{0, {620, 530, 440}},
                                                                       {1, {600, 530, 460}},
                                                                       {2, {620, 530, 430}},
                                                                       {3, {620, 530, 430}},
                                                                       {4, {620, 540, 430}},
                                                                       {6, {}},
                                                                       {8, {}},
                                                                       {77, {}},
                                                                       {-1, {}}}) {
        DichteFilter const filter(static_cast<DStdType>(standard));
        EXPECT_EQ(static_cast<int>(DStdType(filter.GetDStd())), standard);
        for (int i = 0; i < 4; ++i) {
            Filter channel = filter[i];
            auto const& weights = channel.Weights();
            int const peak = i == 0 ? 570 : peaks[i - 1];
            // The printed tables sum to 100 and 1 to their own rounding.
            EXPECT_NEAR(channel.FilterSumme(),
                        peak == 0 ? 0
                        : i == 0  ? 100
                                  : 1,
                        i == 0 ? 1e-3 : 3e-5)
                << standard << i;
            if (peak == 0) continue;
            EXPECT_EQ(380 + 10 * (std::ranges::max_element(weights) - weights.begin()), peak)
                << standard << i;
        }
    }
}

TEST(DichteFilter, DinIsSevenPointsAndNarrowBandOne) {
    double const heights[] = {0.0405405, 0.108108, 0.216216, 0.27027, 0.216216, 0.108108, 0.0405405};
    DichteFilter const din(DStdType::Din), narrow(DStdType::DinNb);
    for (auto const& [channel, centre] : Rows<int, int>{{1, 24}, {2, 15}, {3, 5}}) {
        for (int k = 0; k < SpectralPoints; ++k) {
            int const j = k - centre + 3;
            EXPECT_NEAR(din[channel].Weights()[k], j >= 0 && j < 7 ? heights[j] : 0.0,
                        5e-7);  // six printed digits
            EXPECT_EQ(narrow[channel].Weights()[k], k == centre ? 1.0F : 0.0F);
        }
    }
}

}  // namespace kv::test
