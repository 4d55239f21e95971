// Properties of the numbers: computed by hand, from another command, or from the instrument.
#include "Apps/Tests/kvcolor/Program.h"
#include "Apps/files/MeasurementFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace kvcolor::test {

namespace {

/// Returns L*, a*, b* by sample from another command.
std::map<std::string, std::array<double, 3>> LabOf(std::string const& path) {
    std::map<std::string, std::array<double, 3>> lab;
    auto const result = RunJson({"convert", path});
    for (auto const& row : result["samples"]) lab[row["name"]] = {row["L"], row["a"], row["b"]};
    return lab;
}

}  // namespace

TEST(ConvertTest, ReproducesTheLabOfTheInstrument) {
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
    // Absolute again: the paper of the run before is removed.
    EXPECT_GT(RunJson({"density", InkSeries, "--only", "0"})["samples"][0]["red"], 0.05);
}

TEST(DifferenceTest, OfTwoFilesPairsByNameAndSumsUp) {
    auto const result = RunJson({"difference", ChartA, "--standard", ChartB});
    auto const sample = LabOf(ChartA);
    auto const standard = LabOf(ChartB);
    std::vector<double> distances;
    ASSERT_EQ(result["samples"].size(), 24U);
    for (auto const& row : result["samples"]) {
        auto const& s = sample.at(row["name"]);
        auto const& t = standard.at(row["name"]);
        distances.push_back(std::hypot(s[0] - t[0], s[1] - t[1], s[2] - t[2]));
        EXPECT_NEAR(row["dE_ab"], distances.back(), 2e-5);
        EXPECT_NEAR(row["dL"], s[0] - t[0], 2e-5);
        EXPECT_NEAR(row["dC"], std::hypot(s[1], s[2]) - std::hypot(t[1], t[2]), 2e-5);
    }
    auto const& summary = result["summary"][0];
    double sum = 0;
    for (double const d : distances) sum += d;
    EXPECT_NEAR(summary["mean"], sum / 24, 2e-5);
    std::ranges::sort(distances);
    // 95 of 100 of 24 are 22.8: the 23rd.
    EXPECT_NEAR(summary["percentile95"], distances[22], 2e-5);
    EXPECT_NEAR(summary["maximum"], distances[23], 2e-5);
    EXPECT_EQ(summary["at"], "blue");
    EXPECT_EQ(summary["count"], 24);
    EXPECT_EQ(result["summary"].size(), 10U);
    EXPECT_EQ(result["summary"][1]["formula"], "|dL*|");
    EXPECT_GT(result["summary"][1]["maximum"], 1.3);
}

TEST(DifferenceTest, WeightsDivideTheirComponents) {
    std::string const path = WriteFile("greys.txt", {{"standard", "0.4"}, {"sample", "0.5"}});
    auto const rate = [&](std::string const& option, std::string const& weights, std::string const& key) {
        auto const result = RunJson({"difference", path, "--standard", "standard", option, weights});
        return result["samples"][0][key].get<double>();
    };
    // Greys differ in lightness alone.
    EXPECT_NEAR(rate("--cmc", "1:1", "dE_CMC"), 2 * rate("--cmc", "2:1", "dE_CMC"), 1e-4);
    EXPECT_NEAR(rate("--k", "1:1:1", "dE_94"), 2 * rate("--k", "2:1:1", "dE_94"), 1e-4);
}

TEST(DifferenceTest, AFileThatIsAlsoASampleIsAWarning) {
    std::string const standard = WriteFile("standard.txt", {{"x", "0.5"}});
    std::string const samples = WriteFile("samples.txt", {{"x", "0.5"}, {standard, "0.25"}});
    Arguments arguments = {"difference", samples,     "--standard", standard, "--only",
                           "x",          "--formula", "dL",         "-q"};
    Outcome const outcome = RunProgram(arguments);
    EXPECT_EQ(outcome.err, "kvcolor: warning: --standard " + standard + " is a file and a sample of " +
                               samples + "; using the file (use sample:" + standard + " for the sample)\n");
    EXPECT_NE(outcome.out.find("x     0.00"), std::string::npos) << outcome.out;
    arguments[3] = "file:" + standard;
    EXPECT_EQ(RunProgram(arguments).err, "");
    arguments[3] = "sample:" + standard;
    EXPECT_NE(RunProgram(arguments).out.find("x     18.99"), std::string::npos) << RunProgram(arguments).out;
}

TEST(MetamerismTest, GreysAreNotMetamers) {
    std::string const path = WriteFile("neutral.txt", {{"a", "0.5"}, {"b", "0.4"}});
    auto const flat =
        RunJson({"metamerism", path, "--standard", "a", "--test", "A", "--test", "F11"})["samples"][0];
    // Corrected for the reference illuminant, flat spectra match under all illuminants.
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
