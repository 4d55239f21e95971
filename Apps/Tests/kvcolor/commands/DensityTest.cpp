#include "Apps/Tests/kvcolor/Program.h"

#include <cmath>

namespace kvcolor::test {

TEST(DensityTest, OfFlatSamplesIsTheLogarithmUnderEveryStandard) {
    std::string const path = WriteFile("flat.txt", {{"white", "1"}, {"paper", "0.8"}, {"grey", "0.1"}});
    auto const rows = RunJson({"density", path, "--all"})["samples"];
    ASSERT_EQ(rows.size(), 3U * 7U);
    for (auto const& row : rows) {
        double const expected = row["name"] == "grey" ? 1 : row["name"] == "paper" ? -std::log10(0.8) : 0;
        // The tables' weights sum to 1 to four digits.
        EXPECT_NEAR(row["visual"], expected, 1e-4) << row;
        EXPECT_EQ(row["filter"], "visual") << row;
        bool const isVisualOnly = row["density standard"] == "ANSI M" || row["density standard"] == "DS1";
        for (char const* const channel : {"red", "green", "blue"}) {
            if (isVisualOnly) {
                EXPECT_TRUE(row[channel].is_null()) << row;
            } else {
                EXPECT_NEAR(row[channel], expected, 1e-4) << row;
            }
        }
    }
}

TEST(DensityTest, RelativeValuesAndDotAreasOfGreys) {
    std::string const path = WriteFile("tones.txt", {{"paper", "0.8"}, {"half", "0.45"}, {"solid", "0.1"}});
    auto const result = RunJson(
        {"density", path, "--standard", "din", "--paper", "paper", "--solid", "solid", "--filter", "2"});
    EXPECT_EQ(result["conditions"]["density standard"], "DIN");
    EXPECT_EQ(result["conditions"]["paper"], "paper");
    auto const rows = result["samples"];
    EXPECT_NEAR(rows[0]["green"], 0, 1e-6);
    EXPECT_NEAR(rows[1]["green"], std::log10(0.8 / 0.45), 1e-6);
    // Murray-Davies by hand: (0.8 - 0.45) / (0.8 - 0.1).
    EXPECT_NEAR(rows[0]["area"], 0, 1e-4);
    EXPECT_NEAR(rows[1]["area"], 50, 1e-4);
    EXPECT_NEAR(rows[2]["area"], 100, 1e-4);
    EXPECT_EQ(rows[1]["area filter"], "green");
}

TEST(DensityTest, TheInkSeriesRisesThroughTheRedFilter) {
    auto const rows = RunJson({"density", InkSeries, "--paper", "0", "--solid", "100"})["samples"];
    double lastDensity = -1;
    double lastArea = -1;
    for (auto const& row : rows) {
        EXPECT_EQ(row["area filter"], "red");
        EXPECT_GT(row["red"], lastDensity);
        EXPECT_GT(row["area"], lastArea);
        lastDensity = row["red"];
        lastArea = row["area"];
    }
    EXPECT_EQ(rows[0]["filter"], "visual");
    EXPECT_EQ(rows[14]["filter"], "red");
    // Absolute again: no paper stays behind from the run before.
    EXPECT_GT(RunJson({"density", InkSeries, "--only", "0"})["samples"][0]["red"], 0.05);
}

TEST(DensityTest, SaysWhatHasNoValue) {
    std::string const path = WriteFile("light.txt", {{"paper", "0.8"}, {"lighter", "0.9"}});
    Outcome const outcome =
        RunProgram({"density", path, "--paper", "paper", "--solid", "lighter", "--quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(
        outcome.err,
        "kvcolor: warning: solid \"lighter\" is not darker than the paper for the visual filter of ANSI T: "
        "no dot areas\n");
    EXPECT_NE(
        RunProgram({"density", path, "--standard", "DS1"}).err.find("note: DS1 has the visual filter only\n"),
        std::string::npos);
}

}  // namespace kvcolor::test
