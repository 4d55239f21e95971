// kvcolor measure with the real measuring server.
#include "Apps/Tests/HQMSERV/Desktop.h"
#include "Apps/Tests/kvcolor/Program.h"

namespace kvcolor::test {

namespace {

using hqmserv::test::Desktop;

nlohmann::json Samples(Arguments const& arguments) { return RunJson(arguments)["samples"]; }

TEST(MeasureTest, BeginsWithNothingRunningAndLosesNoDigit) {
    Desktop const desktop;
    auto const measured = Samples({"measure", "--illuminant", "A"});
    EXPECT_EQ(measured.size(), 24U);
    EXPECT_EQ(measured, Samples({"convert", ChartA, "--illuminant", "A"}));

    std::string const out = desktop.File("measured.dat");
    Outcome const outcome = RunProgram({"measure", out, "--patches", "5"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "kvcolor: note: " + out + ": 5 samples\n");
    EXPECT_EQ(Samples({"convert", out}), Samples({"convert", ChartA, "--only", "#1,#2,#3,#4,#5"}));
}

TEST(MeasureTest, SaysWhyThereIsNoMeasurement) {
    std::string const stated = WriteFile("m1.txt", {{"one", "0.5"}}, "MEASUREMENT_MODE \"M1\"\n");
    struct Case {
        std::string chart;
        Arguments rest;
        std::string text;
    };
    std::vector<Case> const cases = {
        {"", {}, "the instrument is not ready: nothing to measure"},
        {"/no/such/file",
         {},
         "the instrument is not ready: /no/such/file: found no file of this name, expected a measurement file"},
        {stated, {"--patches", "2"}, "the chart has 1 patches, asked for were 2"},
        {stated, {"--condition", "M2"}, "the instrument measures under other conditions"},
    };
    for (Case const& c : cases) {
        Desktop const desktop(c.chart);
        Arguments arguments = {"measure"};
        arguments.insert(arguments.end(), c.rest.begin(), c.rest.end());
        EXPECT_EQ(FailureOf(arguments), "kvcolor: " + c.text + '\n');
    }
}

TEST(MeasureTest, KeepsWhatWasMeasuredWhenTheServerDies) {
    Desktop const desktop;
    hqmserv::test::ServerProgram server({ChartA, "--measuring-time", "20"});
    std::string const out = desktop.File("part.dat");
    std::ostringstream err;
    std::ostringstream none;
    int questions = 0;
    // Asked while an answer is waited for; some patches are measured by then.
    auto const killLater = [&] {
        if (++questions == 60) server.Kill();
        return false;
    };
    int const status = kvcolor::Run({"measure", out, "--patience", "1"},
                                    Environment{.out = none, .err = err, .isInterrupted = killLater});
    EXPECT_EQ(status, UnusableInput);
    EXPECT_NE(err.str().find("measuring server"), std::string::npos) << err.str();
    EXPECT_GT(Samples({"convert", out}).size(), 0U);
}

TEST(MeasureTest, TakesItsLeaveWhenInterrupted) {
    Desktop const desktop;
    hqmserv::test::ServerProgram server({ChartA, "--measuring-time", "20"});
    std::ostringstream err;
    std::ostringstream out;
    int questions = 0;
    int const status = kvcolor::Run(
        {"measure"}, Environment{.out = out, .err = err, .isInterrupted = [&] { return ++questions > 60; }});
    EXPECT_EQ(status, UnusableInput);
    EXPECT_EQ(err.str(), "kvcolor: interrupted\n");
    EXPECT_TRUE(server.Ends());
}

}  // namespace

}  // namespace kvcolor::test
