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

TEST(ReportTest, WritesAFile) {
    std::string const out = FreshPdf();
    auto const program = platform::Process::Start(
        KV_COLOR, {"report", ChartA, "--out", out, "--standard", "#20", "--tolerance", "10", "--language",
                   "de", "--user", "Ada", "--quiet"});
    ASSERT_NE(program, nullptr);
    // A build without windows cannot print.
    EXPECT_EQ(program->Wait(), KV_PRINTS ? 0 : UnusableInput);
    std::string const content = ContentOf(out);
    EXPECT_EQ(content.substr(0, 8), KV_PRINTS ? "%PDF-1.4" : "");
    EXPECT_EQ(content.find("/Lang (de)") != std::string::npos, KV_PRINTS);
}

}  // namespace kvcolor::test
