#include "Apps/Tests/kvcolor/Program.h"

namespace kvcolor::test {

TEST(MetamerismTest, GreysAreNoMetamersAndChartNeutralsHardly) {
    std::string const path = WriteFile("neutral.txt", {{"a", "0.5"}, {"b", "0.4"}});
    auto const flat =
        RunJson({"metamerism", path, "--standard", "a", "--test", "A", "--test", "F11"})["samples"][0];
    // What remains under the reference light is taken out; flat spectra stay alike under all lights.
    EXPECT_GT(flat["dE_ab_D65"], 5);
    EXPECT_NEAR(flat["index_A"], 0, 1e-3);
    EXPECT_NEAR(flat["index_F11"], 0, 1e-3);

    auto const chart = RunJson({"metamerism", ChartA, "--standard", "neutral 5 (.70 D)"})["samples"];
    ASSERT_EQ(chart.size(), 23U);
    for (auto const& row : chart) {
        double const index = row["index_A"];
        std::string const name = row["name"];
        EXPECT_TRUE(!name.starts_with("neutral") || index < 0.5) << row;
        EXPECT_TRUE(name != "orange" || index > 2) << row;
    }
}

TEST(MetamerismTest, OneSampleUnderAGivenReference) {
    auto const result = RunJson({"metamerism", ChartA, "--standard", "cyan", "--sample", "blue",
                                 "--reference", "d50", "--test", "d75"});
    EXPECT_EQ(result["conditions"]["reference"], "D50");
    ASSERT_EQ(result["samples"].size(), 1U);
    EXPECT_EQ(result["samples"][0]["name"], "blue");
    EXPECT_TRUE(result["samples"][0].contains("index_D75"));
}

}  // namespace kvcolor::test
