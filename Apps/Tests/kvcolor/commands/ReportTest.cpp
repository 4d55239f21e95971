#include "Apps/Tests/kvcolor/Program.h"
#include "Platform/Process.h"

#include <cstdio>

namespace kvcolor::test {

namespace {

std::string FreshPdf() {
    std::string path = testing::TempDir() + "chart.pdf";
    static_cast<void>(std::remove(path.c_str()));
    return path;
}

std::string ContentOf(std::string const& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

}  // namespace

TEST(ChartReportCommandTest, WritesAFile) {
    std::string const out = FreshPdf();
    auto const program = platform::Process::Start(
        KV_COLOR, {"report", ChartA, "--out", out, "--standard", "#20", "--tolerance", "10", "--language",
                   "de", "--user", "Ada", "--quiet"});
    ASSERT_NE(program, nullptr);
    // A build without windows has no pages either, and says so.
    EXPECT_EQ(program->Wait(), KV_PRINTS ? 0 : UnusableInput);
    std::string const content = ContentOf(out);
    EXPECT_EQ(content.substr(0, 8), KV_PRINTS ? "%PDF-1.4" : "");
    EXPECT_EQ(content.find("/Lang (de)") != std::string::npos, KV_PRINTS);
}

TEST(ChartReportCommandTest, SaysWhyThereIsNone) {
    std::string const out = FreshPdf();
    struct Case {
        Arguments arguments;
        std::string message;
    };
    std::vector<Case> const cases = {
        {{"--out", out}, "this build of kvcolor has no printing"},
        {{"--out", "chart.txt"}, "--out chart.txt: a report is a .pdf file"},
        {{"--out", out, "--measure", "cielab,cmc"}, "--measure cielab,cmc: a report judges by one measure"},
        {{"--out", out, "--standard", "#20", "--tolerance", "-1"},
         "--tolerance: found \"-1\", expected a number above 0"},
    };
    for (Case const& c : cases) {
        Arguments arguments = {"report", ChartA};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(FailureOf(arguments), "kvcolor: " + c.message + '\n');
    }
    std::string const there = WriteFile("there.pdf", {{"old", "0.5"}});
    EXPECT_EQ(FailureOf({"report", ChartA, "--out", there}),
              "kvcolor: " + there + " is there already: --force replaces it\n");
}

}  // namespace kvcolor::test
