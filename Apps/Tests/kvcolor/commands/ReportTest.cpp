// Runs the real program: what prints lies in a library of its own.
#include "Apps/Tests/kvcolor/Program.h"
#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <thread>

namespace kvcolor::test {

namespace {

namespace fs = std::filesystem;

/// Returns the exit status; nothing if the program still runs after 20 seconds.
std::optional<int> StatusOf(std::string const& program, Arguments const& arguments) {
    auto const process = platform::Process::Start(program, arguments);
    if (process == nullptr) return std::nullopt;
    for (int i = 0; i < 1000 && process->IsRunning(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (!process->IsRunning()) return process->Wait();
    process->Kill();
    return std::nullopt;
}

}  // namespace

TEST(ReportTest, WritesAFile) {
    tests::TemporaryDirectory const folder;
    std::string const out = folder / "chart.pdf";
    // A build without windows cannot print.
    EXPECT_EQ(StatusOf(KV_COLOR, {"report", ChartA, "--out", out, "--standard", "#20", "--tolerance", "10",
                                  "--language", "de", "--user", "Ada", "--quiet"}),
              KV_PRINTS ? 0 : UnusableInput);
    std::string const content = tests::Bytes(out);
    EXPECT_EQ(content.substr(0, 8), KV_PRINTS ? "%PDF-1.4" : "");
    EXPECT_EQ(content.find("/Lang (de)") != std::string::npos, KV_PRINTS);
}

TEST(ReportTest, AnOutputThatCannotBeWrittenEndsTheProgram) {
    tests::TemporaryDirectory const folder;
    fs::create_directory(folder.Path() / "folder.pdf");
    Arguments paths = {folder / "none/chart.pdf", folder / "folder.pdf"};
#ifdef __linux__
    paths.emplace_back("/proc/chart.pdf");  // not even root may write there
#endif
    for (std::string const& path : paths) {
        EXPECT_EQ(StatusOf(KV_COLOR, {"report", ChartA, "--out", path, "--force", "--quiet"}), OutputFailed)
            << path;
    }
    EXPECT_FALSE(fs::exists(folder.Path() / "none"));
}

#ifdef __linux__
TEST(ReportTest, AFullDeviceEndsTheProgram) {
    if (!KV_PRINTS) GTEST_SKIP();
    tests::TemporaryDirectory const folder;
    // A limit on the size of files has the effect of a full device.
    EXPECT_EQ(StatusOf("/bin/sh", {"-c", "trap '' XFSZ; ulimit -f 4; exec \"$0\" \"$@\"", KV_COLOR, "report",
                                   ChartA, "--out", folder / "chart.pdf", "--quiet"}),
              OutputFailed);
}

TEST(ReportTest, MissingTextsEndTheProgram) {
    if (!KV_PRINTS) GTEST_SKIP();
    tests::TemporaryDirectory const folder;
    fs::path const program = KV_COLOR;
    for (auto const& entry : fs::directory_iterator(program.parent_path())) {
        if (entry.path().filename().string().starts_with("kvcolor")) fs::copy(entry, folder.Path());
    }
    EXPECT_EQ(StatusOf(folder / "kvcolor", {"report", ChartA, "--out", folder / "chart.pdf", "--quiet"}),
              UnusableInput);
}

TEST(ReportTest, AClosedPipeIsSilent) {
    tests::TemporaryDirectory const folder;
    std::string const errors = folder / "errors";
    EXPECT_EQ(StatusOf("/bin/sh", {"-c", "\"$0\" convert \"$1\" 2>\"$2\" | { exec <&-; sleep 1; }", KV_COLOR,
                                   ChartA, errors}),
              0);
    EXPECT_TRUE(fs::exists(errors));
    EXPECT_EQ(tests::Bytes(errors), "");
}
#endif

}  // namespace kvcolor::test
