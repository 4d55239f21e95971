#include "Apps/Tests/kvcolor/Program.h"

namespace kvcolor::test {

namespace {

struct Failure {
    Arguments arguments;
    std::string words;
};

}  // namespace

TEST(RunTest, UnusableArgumentsAreNamedWithWhatThereIs) {
    std::string const illuminants =
        "A, C, D50, D65, F1 to F12, or D40 to D150 for daylight of 4000 K to 15000 K";
    std::string const commands =
        "convert, density, difference, metamerism, strength, export, measure, report, illuminants";
    std::vector<Failure> const failures = {
        {{"bogus", ChartA}, "no command \"bogus\": there are " + commands + " (see kvcolor --help)"},
        {{"convert"}, "FILE is required (see kvcolor convert --help)"},
        {{"convert", ChartA, "--illuminant", "D39"}, "no illuminant \"D39\": there are " + illuminants},
        {{"convert", ChartA, "--illuminant", "D151"}, "no illuminant \"D151\": there are " + illuminants},
        {{"convert", ChartA, "--illuminant", "F13"}, "no illuminant \"F13\": there are " + illuminants},
        {{"convert", ChartA, "--illuminant", "il2"},
         "illuminant il2 has no spectral table: use " + illuminants},
        {{"convert", ChartA, "--illuminant", "Custom"},
         "illuminant Custom has no spectral table: use " + illuminants},
        {{"convert", ChartA, "--illuminant", "Dxx1"},
         "illuminant Dxx1 has no spectral table: use " + illuminants},
        {{"convert", ChartA, "--observer", "4"}, "no observer \"4\": there are 2 and 10 (degrees)"},
        {{"convert", ChartA, "--condition", "M4"},
         "no measurement condition \"M4\": there are M0, M1, M2, M3"},
        {{"convert", ChartA, "--instrument-filter", "red"},
         "no instrument filter \"red\": there are No, Pol, D65, Repro, UV, Cust, D8i, D8e, D8t"},
        {{"convert", ChartA, "--format", "xml"},
         "--format: xml not in {table,csv,json} (see kvcolor convert --help)"},
        {{"convert", ChartA, "--frob"},
         "The following argument was not expected: --frob (see kvcolor convert --help)"},
        {{"convert", ChartA, "--only", "blu"},
         ChartA +
             " has no sample \"blu\"; near to it: \"blue\", \"blue flower\", \"blue sky\", \"bluish green\", \"purplish blue\""},
        {{"convert", InkSeries, "--only", "0,turquoise"},
         InkSeries + " has no sample \"turquoise\"; it has \"0\", \"5\", \"10\", \"15\", \"20\" and 10 more"},
        {{"convert", InkSeries, "--only", "#16"},
         InkSeries + " has no sample \"#16\"; it has \"0\", \"5\", \"10\", \"15\", \"20\" and 10 more"},
        {{"density", InkSeries, "--standard", "M"},
         "no density standard \"M\": there are ANSI A, ANSI T, ANSI M, DIN, DIN NB, SPI, DS1"},
        {{"density", InkSeries, "--solid", "100"}, "--solid requires --paper (see kvcolor density --help)"},
        {{"density", InkSeries, "--paper", "0", "--solid", "100", "--filter", "4"},
         "no density filter \"4\": there are auto, 0 (visual), 1 (red), 2 (green), 3 (blue)"},
        {{"density", InkSeries, "--paper", "0", "--solid", "100", "--standard", "DS1", "--filter", "1"},
         "DS1 has no filter 1"},
        {{"difference", InkSeries, "--standard", "missing.txt"},
         "--standard missing.txt: neither a file nor a sample of " + InkSeries},
        {{"difference", InkSeries, "--standard", "0", "--only", "0"}, "no sample beside the standard \"0\""},
        {{"difference", InkSeries, "--standard", "0", "--cmc", "2"},
         "--cmc: found \"2\", expected numbers above 0 as l:c, such as 2:1"},
        {{"difference", InkSeries, "--standard", "0", "--k", "1:0:1"},
         "--k: found \"1:0:1\", expected numbers above 0 as kL:kC:kH, such as 1:1:1"},
        {{"difference", InkSeries, "--standard", "0", "--measure", "cmc,x"},
         "no measure \"x\": there are cielab, dL, dC, dH, cmc, cie94, fmc2, mg, korvel1, korvel2"},
        {{"metamerism", InkSeries, "--standard", "0", "--test", "D65"},
         "--test D65 is the reference light: its index is 0 for every pair"},
        {{"strength", InkSeries, "--paper", "100", "--solid", "0"},
         "solid \"0\" absorbs no more than paper \"100\": it is no measure of strength"},
    };
    for (Failure const& failure : failures) {
        EXPECT_EQ(FailureOf(failure.arguments), "kvcolor: " + failure.words + '\n');
    }
}

TEST(RunTest, UnusableFilesAreRefusedByEveryCommand) {
    std::string const empty = testing::TempDir() + "empty.txt";
    std::ofstream(empty).close();
    std::string const missing = testing::TempDir() + "missing.txt";
    for (std::string const& path : {empty, missing, testing::TempDir()}) {
        for (Arguments const& rest : std::vector<Arguments>{{"convert"},
                                                            {"density"},
                                                            {"difference", "--standard", "a"},
                                                            {"metamerism", "--standard", "a"},
                                                            {"strength", "--paper", "a", "--solid", "b"}}) {
            Arguments arguments = rest;
            arguments.push_back(path);
            EXPECT_EQ(FailureOf(arguments).substr(0, 9 + path.size()), "kvcolor: " + path);
        }
    }
}

TEST(RunTest, EveryLineOfStandardErrorNamesTheProgram) {
    std::string const path = WriteFile("hostile.txt", {{"a\x1B[2Jb", "0.5"}, {"c", "0.5"}});
    for (Arguments const& arguments : std::vector<Arguments>{{"convert", path},
                                                             {"convert", path, "--only", "x"},
                                                             {"convert", path, "--only", "x\ny"},
                                                             {"convert"},
                                                             {}}) {
        Outcome const outcome = RunProgram(arguments);
        for (std::string const& line : LinesOf(outcome.err))
            EXPECT_TRUE(line.starts_with("kvcolor: ")) << line;
        EXPECT_EQ((outcome.out + outcome.err).find('\x1B'), std::string::npos);
    }
}

TEST(RunTest, HelpOfEachCommandHasAnExample) {
    for (std::string const command :
         {"convert", "density", "difference", "metamerism", "strength", "illuminants"}) {
        Outcome const outcome = RunProgram({command, "--help"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_NE(outcome.out.find("Example:\n  kvcolor " + command), std::string::npos);
        EXPECT_EQ(outcome.err, "");
    }
    EXPECT_EQ(RunProgram({"--help"}).status, 0);
}

TEST(RunTest, VersionIsTheProjects) {
    Outcome const outcome = RunProgram({"--version"});
    EXPECT_EQ(outcome.out, std::string("kvcolor ") + Version + '\n');
    std::ifstream project(KV_APPS_DATA "/../../CMakeLists.txt");
    std::string const text(std::istreambuf_iterator<char>(project), {});
    EXPECT_NE(text.find(std::string("project(KVUtils VERSION ") + Version + ' '), std::string::npos);
}

}  // namespace kvcolor::test
