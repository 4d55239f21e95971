#include "Apps/Tests/kvcolor/Program.h"
#include "Apps/files/MeasurementFile.h"

#include <cmath>

namespace kvcolor::test {

TEST(ConvertTest, ReproducesTheInstrumentsOwnLab) {
    auto const file = files::ReadMeasurementFile(InkSeries);
    auto const result = RunJson({"convert", InkSeries});
    ASSERT_EQ(result["samples"].size(), 15U);

    auto const toCent = [](double v) { return std::round(v * 100) / 100; };
    double sum = 0;
    double maximum = 0;
    for (std::size_t i = 0; i < 15; ++i) {
        auto const& row = result["samples"][i];
        auto const& own = file.samples[i].lab.value();
        double const distance =
            std::hypot(toCent(row["L"]) - own[0], toCent(row["a"]) - own[1], toCent(row["b"]) - own[2]);
        sum += distance;
        maximum = std::max(maximum, distance);
    }
    RecordProperty("mean", std::to_string(sum / 15));
    RecordProperty("maximum", std::to_string(maximum));
    // One unit in the last place of a rounded coordinate is 0.01.
    EXPECT_LT(sum / 15, 0.01);
    EXPECT_LT(maximum, 0.015);
}

TEST(ConvertTest, CoordinatesBelongTogether) {
    auto const result = RunJson({"convert", ChartA, "--illuminant", "F11", "--observer", "10"});
    EXPECT_EQ(result["conditions"]["illuminant"], "F11");
    EXPECT_EQ(result["conditions"]["observer"], "10 degrees");
    ASSERT_EQ(result["samples"].size(), 24U);
    for (auto const& row : result["samples"]) {
        double const X = row["X"], Y = row["Y"], Z = row["Z"], a = row["a"], b = row["b"];
        EXPECT_NEAR(row["x"], X / (X + Y + Z), 1e-5);
        EXPECT_NEAR(row["y"], Y / (X + Y + Z), 1e-5);
        EXPECT_EQ(row["xyY_Y"], row["Y"]);
        EXPECT_EQ(row["LCh_L"], row["L"]);
        EXPECT_NEAR(row["L"], Y > 0.8856 ? 116 * std::cbrt(Y / 100) - 16 : 9.033 * Y, 1e-3);
        EXPECT_NEAR(row["C"], std::hypot(a, b), 1e-4);
    }
}

TEST(ConvertTest, DaylightsByNumberAreComputedAndNamed) {
    auto const table = RunJson({"convert", ChartA, "--illuminant", "d65"});
    auto const near = RunJson({"convert", ChartA, "--illuminant", "D66"});
    EXPECT_EQ(table["conditions"]["illuminant"], "D65");
    EXPECT_EQ(near["conditions"]["illuminant"], "D66");
    double const difference = double{near["samples"][0]["Z"]} - double{table["samples"][0]["Z"]};
    // A hundred kelvin make the light a little bluer.
    EXPECT_GT(difference, 0);
    EXPECT_LT(difference, 0.1);
}

TEST(ConvertTest, WarnsOfStatedConditionsNamingBoth) {
    std::string const path =
        WriteFile("stated.txt", {{"a", "0.5"}},
                  "WEIGHTING_FUNCTION \"ILLUMINANT, A\"\nWEIGHTING_FUNCTION \"OBSERVER, 10 degree\"\n"
                  "MEASUREMENT_CONDITION \"M1\"\nFILTER \"Pol\"\n");
    auto const warnings = [&](Arguments arguments) {
        arguments.insert(arguments.begin(), {"convert", path, "--quiet"});
        return RunProgram(arguments).err;
    };
    EXPECT_EQ(warnings({"--illuminant", "A", "--observer", "10"}), "");
    EXPECT_EQ(warnings({}), "kvcolor: warning: " + path + " states illuminant A, computed with D50\n" +
                                "kvcolor: warning: " + path +
                                " states observer 10 degrees, computed with 2 degrees\n");
    EXPECT_EQ(
        warnings({"--illuminant", "A", "--observer", "10", "--condition", "m0", "--instrument-filter", "no"}),
        "kvcolor: warning: " + path + " states measurement condition M1, asked for was M0\n" +
            "kvcolor: warning: " + path + " states filter Pol, asked for was No\n");
    EXPECT_EQ(warnings({"--illuminant", "A", "--observer", "10", "--condition", "M1", "--instrument-filter",
                        "pol"}),
              "");
    auto const conditions = RunJson({"convert", path})["conditions"];
    EXPECT_EQ(conditions["measurement condition"], "M1");
    EXPECT_EQ(conditions["instrument filter"], "Pol");
}

TEST(ConvertTest, NotesWhatIsAskedForAndNotStated) {
    std::string const path = WriteFile("silent.txt", {{"a", "0.5"}});
    Outcome const outcome = RunProgram({"convert", path, "--condition", "M1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(
        outcome.err.find("kvcolor: note: " + path + " states no measurement condition, asked for was M1\n"),
        std::string::npos);
}

}  // namespace kvcolor::test
