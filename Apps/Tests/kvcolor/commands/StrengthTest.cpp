#include "Apps/Tests/kvcolor/Program.h"

#include <cmath>

namespace kvcolor::test {

TEST(StrengthTest, PaperHasNoneAndTheSolidIsOne) {
    for (std::string const method : {"maximum", "mean"}) {
        auto const rows = RunJson({"strength", InkSeries, "--paper", "0", "--solid", "100", "--model", "all",
                                   "--method", method})["samples"];
        double last = -1;
        for (auto const& row : rows) {
            EXPECT_GT(row["strength_plain"], last) << method;
            last = row["strength_plain"];
        }
        for (std::string const key : {"strength_power", "strength_plain", "strength_corrected"}) {
            EXPECT_NEAR(rows[0][key], 0, 1e-3) << key << ' ' << method;
            EXPECT_NEAR(rows[14][key], 1, 1e-6) << key << ' ' << method;
        }
        EXPECT_EQ(rows[0].contains("nm_plain"), method == "maximum");
    }
}

TEST(StrengthTest, OfFlatSamplesByHand) {
    std::string const path = WriteFile("strength.txt", {{"paper", "1"}, {"tone", "0.5"}, {"solid", "0.25"}});
    auto const row = RunJson({"strength", path, "--paper", "paper", "--solid", "solid", "--only", "tone",
                              "--model", "all", "--method", "mean"})["samples"][0];
    auto const plain = [](double r) { return (1 - r) * (1 - r) / (2 * r); };
    auto const corrected = [&](double r) { return plain(r / (0.6 * r + 0.384)); };
    EXPECT_NEAR(row["strength_plain"], plain(0.5) / plain(0.25), 1e-5);
    EXPECT_NEAR(row["strength_corrected"], corrected(0.5) / corrected(0.25), 1e-5);
    // (-ln r) to a power: the logarithm of 0.25 is twice that of 0.5.
    EXPECT_NEAR(row["strength_power"], std::pow(0.5, 1 / 0.61), 1e-5);
}

}  // namespace kvcolor::test
