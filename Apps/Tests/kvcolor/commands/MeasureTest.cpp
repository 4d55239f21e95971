// Runs kvcolor measure with the real measuring server.
#include "Apps/Tests/HQMSERV/Desktop.h"
#include "Apps/Tests/kvcolor/Program.h"
#include "Platform/Tests/TestSystem.h"

namespace kvcolor::test {

namespace {

using hqmserv::test::Desktop;

nlohmann::json Samples(Arguments const& arguments) { return RunJson(arguments)["samples"]; }

TEST(MeasureTest, StartsTheServerAndPreservesEveryDigit) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "HQMSERV does not exit after its last client under Wine";
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

TEST(MeasureTest, ReportsWhyThereIsNoMeasurement) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "HQMSERV does not exit after its last client under Wine";
    std::string const stated = WriteFile("m1.txt", {{"one", "0.5"}}, "MEASUREMENT_MODE \"M1\"\n");
    struct Case {
        std::string chart;
        Arguments rest;
        std::string text;
    };
    std::vector<Case> const cases = {
        {"", {}, "the instrument is not ready: nothing to measure"},
        {"nowhere.csv", {}, "the instrument is not ready: nowhere.csv: no such file"},
        {stated, {"--patches", "2"}, "2 patches requested; the chart has 1"},
        {stated, {"--condition", "M2"}, "the instrument measures under other conditions"},
    };
    for (Case const& c : cases) {
        Desktop const desktop(c.chart);
        Arguments arguments = {"measure"};
        arguments.insert(arguments.end(), c.rest.begin(), c.rest.end());
        EXPECT_EQ(FailureOf(arguments), "kvcolor: " + c.text + '\n');
    }
}

/// A run at a terminal that calls a function after its third patch.
struct Disturbed {
    std::ostringstream out;
    std::ostringstream err;
    Environment::Clock::time_point now;

    int Run(Arguments const& arguments, std::function<bool()> const& afterThird) {
        auto const isInterrupted = [&] {
            return err.str().find("measuring: 3 of 24") != std::string::npos && afterThird();
        };
        // Each call is later, so that every step is drawn.
        auto const later = [this] { return now += std::chrono::seconds(2); };
        return kvcolor::Run(
            arguments,
            Environment{
                .out = out, .err = err, .errIsTerminal = true, .now = later, .isInterrupted = isInterrupted});
    }
};

TEST(MeasureTest, KeepsThePatchesMeasuredBeforeTheServerIsKilled) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "HQMSERV does not exit after its last client under Wine";
    Desktop const desktop;
    hqmserv::test::ServerProgram server({ChartA, "--measuring-time", "20"});
    std::string const out = desktop.File("part.dat");
    Disturbed run;
    int const status = run.Run({"measure", out, "--timeout", "3"}, [&] {
        server.Kill();
        return false;
    });
    EXPECT_EQ(status, UnusableInput);
    EXPECT_NE(run.err.str().find("kvcolor: the measuring server "), std::string::npos) << run.err.str();
    EXPECT_GE(Samples({"convert", out}).size(), 3U);
}

TEST(MeasureTest, DisconnectsWhenInterrupted) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "HQMSERV does not exit after its last client under Wine";
    Desktop const desktop;
    hqmserv::test::ServerProgram server({ChartA, "--measuring-time", "20"});
    Disturbed run;
    EXPECT_EQ(run.Run({"measure"}, [] { return true; }), UnusableInput);
    EXPECT_TRUE(run.err.str().ends_with("kvcolor: interrupted\n")) << run.err.str();
    EXPECT_TRUE(server.Ends());
}

}  // namespace

}  // namespace kvcolor::test
