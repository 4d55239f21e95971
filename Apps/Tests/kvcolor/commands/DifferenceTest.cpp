#include "Apps/Tests/kvcolor/Program.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace kvcolor::test {

namespace {

/// L*, a*, b* by sample, from another command.
std::map<std::string, std::array<double, 3>> LabOf(std::string const& path) {
    std::map<std::string, std::array<double, 3>> lab;
    auto const result = RunJson({"convert", path});
    for (auto const& row : result["samples"]) lab[row["name"]] = {row["L"], row["a"], row["b"]};
    return lab;
}

}  // namespace

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
    EXPECT_EQ(result["summary"][1]["measure"], "|dL*|");
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

TEST(DifferenceTest, ShowsTheMeasuresAskedFor) {
    Outcome const outcome = RunProgram({"difference", ChartA, "--standard", "cyan", "--only", "blue*",
                                        "--measure", "MG,dh", "--format", "csv", "--quiet"});
    auto const lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "name,dE_mg,dH,file,standard,illuminant,observer,CMC,CIE94\r");
    EXPECT_EQ(lines[1].substr(0, 9), "blue sky,");
    // The standard is no sample of itself.
    EXPECT_EQ(RunJson({"difference", ChartA, "--standard", "cyan"})["samples"].size(), 23U);
}

TEST(DifferenceTest, WithoutLightThereIsNoFmc) {
    std::string const path = WriteFile("dark.txt", {{"black", "0"}, {"grey", "0.5"}});
    auto const result = RunJson({"difference", path, "--standard", "black", "--measure", "fmc2"});
    EXPECT_TRUE(result["samples"][0]["dE_FMC2"].is_null());
    EXPECT_TRUE(result["summary"][0]["mean"].is_null());
}

TEST(DifferenceTest, SaysWhatDoesNotPair) {
    std::string const a =
        WriteFile("a.txt", {{"x", "0.5"}, {"x", "0.6"}, {"y", "0.7"}}, "MEASUREMENT_CONDITION M0\n");
    std::string const b =
        WriteFile("b.txt", {{"x", "0.5"}, {"x", "0.6"}, {"z", "0.1"}}, "MEASUREMENT_CONDITION M1\n");
    Outcome const outcome =
        RunProgram({"difference", a, "--standard", b, "--measure", "cielab", "--format", "json", "-q"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "kvcolor: warning: " + a + " states measurement condition M0, " + b +
                               " states M1\n" + "kvcolor: warning: " + b +
                               " has names more than once, paired in the order of the files: \"x\"\n" +
                               "kvcolor: warning: 1 of " + a + " without a partner in " + b + ": \"y\"\n" +
                               "kvcolor: warning: 1 of " + b + " without a partner in " + a + ": \"z\"\n");
    auto const result = nlohmann::json::parse(outcome.out);
    for (auto const& row : result["samples"]) EXPECT_EQ(row["dE_ab"], 0);
    EXPECT_EQ(FailureOf({"difference", a, "--standard", InkSeries}),
              "kvcolor: " + a + " and " + InkSeries + " have no sample name in common\n");
}

}  // namespace kvcolor::test
