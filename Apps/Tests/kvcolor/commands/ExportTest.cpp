#include "Apps/Tests/kvcolor/Program.h"
#include "KVUtils/Version.h"

#include <cstdio>

namespace kvcolor::test {

namespace {

/// Returns the path of a file that does not exist.
std::string FreshPath(std::string const& name) {
    std::string path = testing::TempDir() + name;
    static_cast<void>(std::remove(path.c_str()));
    return path;
}

/// Returns the answer without the name of the file.
nlohmann::json NumbersOf(Arguments const& arguments) {
    nlohmann::json answer = RunJson(arguments);
    EXPECT_FALSE(answer.is_discarded());
    answer["conditions"].erase("file");
    return answer;
}

}  // namespace

TEST(ExportTest, EveryCommandReadsItAndGivesTheSameAnswer) {
    struct Case {
        std::string file;
        Arguments command;
        Arguments rest;
    };
    std::vector<Case> const cases = {
        {InkSeries, {"convert"}, {"--illuminant", "A"}},
        {ChartA, {"convert"}, {"--only", "*blue*"}},
        {InkSeries, {"density"}, {"--paper", "0", "--solid", "100"}},
        {ChartA, {"difference"}, {"--standard", ChartB}},
        {InkSeries, {"difference"}, {"--standard", "0", "--formula", "cielab,cmc"}},
        {InkSeries, {"metamerism"}, {"--standard", "0"}},
        {InkSeries, {"strength"}, {"--paper", "0", "--solid", "100", "--model", "all"}},
    };
    for (Case const& c : cases) {
        std::string const out = FreshPath("exported.dat");
        Outcome const outcome = RunProgram({"export", c.file, out, "--quiet"});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out + outcome.err, "");
        auto const with = [&](std::string const& file) {
            Arguments arguments = c.command;
            arguments.push_back(file);
            arguments.insert(arguments.end(), c.rest.begin(), c.rest.end());
            return NumbersOf(arguments);
        };
        EXPECT_EQ(with(out), with(c.file)) << c.command.front() << ' ' << c.file;
    }
}

TEST(ExportTest, WritesTheChosenSamplesAndTheirCount) {
    std::string const out = FreshPath("chosen.dat");
    Outcome const outcome = RunProgram({"export", InkSeries, out, "--only", "0,100"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).back(), "kvcolor: note: " + out + ": 2 samples");
    auto const rows = RunJson({"convert", out})["samples"];
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["name"], "0");
    EXPECT_EQ(rows[1]["name"], "100");
    std::ifstream file(out, std::ios::binary);
    std::string first;
    std::string second;
    std::getline(std::getline(file, first), second);
    EXPECT_EQ(first + '\n' + second, "[File]\nApplication=kvcolor " + std::string(kv::Version));
    EXPECT_EQ(LinesOf(RunProgram({"convert", out, "-v"}).err).front(),
              "kvcolor: note: " + out + ": the suite's data file, version 2");
}

TEST(ExportTest, OverwritesAFileOnlyIfForced) {
    std::string const out = WriteFile("there.dat", {{"old", "0.5"}});
    EXPECT_EQ(FailureOf({"export", InkSeries, out}),
              "kvcolor: " + out + " already exists (use --force to overwrite)\n");
    EXPECT_EQ(RunJson({"convert", out})["samples"].size(), 1U);
    EXPECT_EQ(RunProgram({"export", InkSeries, out, "--force"}).status, 0);
    EXPECT_EQ(RunJson({"convert", out})["samples"].size(), 15U);
    // But never its own source, of which a part would be lost.
    EXPECT_EQ(FailureOf({"export", out, out, "--force", "--only", "#1"}),
              "kvcolor: " + out + " is FILE itself (choose another OUT)\n");
    EXPECT_EQ(RunJson({"convert", out})["samples"].size(), 15U);
}

TEST(ExportTest, WarnsOfNamesThatAreNotRepresentable) {
    std::string const path = WriteFile("names.txt", {{"2^A", "0.5"}, {"plain", "0.5"}});
    Outcome const outcome = RunProgram({"export", path, FreshPath("names.dat"), "--quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err,
              "kvcolor: warning: sample \"2^A\" will have another name: a data file cannot contain \"^\" or "
              "characters outside Windows-1252\n");
}

TEST(ExportTest, AnOutputThatCannotBeWrittenHasItsOwnStatus) {
    std::string const out = testing::TempDir() + "no-such-folder/out.dat";
    Outcome const outcome = RunProgram({"export", InkSeries, out, "--quiet"});
    EXPECT_EQ(outcome.status, OutputFailed);
    EXPECT_EQ(outcome.err, "kvcolor: " + out + ": cannot be written: no such directory\n");
}

}  // namespace kvcolor::test
