#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

#include <csignal>

namespace platform {
namespace {

namespace fs = std::filesystem;

class StartProgramTest : public testing::Test {
  protected:
    // The tests ignore SIGPIPE, which a started program must not inherit.
    StartProgramTest() : signal_(std::signal(SIGPIPE, SIG_IGN)) {}
    ~StartProgramTest() override { std::signal(SIGPIPE, signal_); }

    /// Writes a script that writes where it runs, its name and its arguments, one per line.
    void WriteScript(std::string const& name, fs::perms permissions = fs::perms::owner_all) const {
        tests::PutBytes(here / name,
                        "#!/bin/sh\n"
                        "{ pwd; basename \"$0\"; for a; do echo \"$a\"; done; } > w.new\n"
                        "sh -c 'kill -PIPE $$; echo inherits signals >> w.new'\nmv w.new written\n");
        fs::permissions(here / name, permissions);
    }
    /// Starts a program and waits for the text of the script.
    void ExpectRun(std::string const& line, std::optional<std::string> const& directory,
                   std::string const& expected) const {
        ASSERT_TRUE(StartProgram(line, directory)) << line << " in " << directory.value_or("none");
        ASSERT_TRUE(tests::WaitUntil([&] { return fs::exists(here / "written"); })) << line;
        EXPECT_EQ(tests::Bytes(here / "written"), here.string() + '\n' + expected) << line;
        fs::remove(here / "written");
    }

    void (*signal_)(int);
    tests::TemporaryDirectory directory_;
    fs::path here = fs::canonical(directory_.Path());
};

TEST_F(StartProgramTest, SearchesTheDirectoryFirstAndRunsThere) {
    WriteScript("true");  // the system's path has one as well
    ExpectRun("true -S  -LNG 49 \"two words\" \"\"", here.string(), "true\n-S\n-LNG\n49\ntwo words\n\n");
    ExpectRun("./true", here.string(), "true\n");
    fs::path const before = fs::current_path();
    fs::current_path(here);
    // Else the current directory is first.
    for (std::optional<std::string> const& directory : {std::optional<std::string>(), {""}, {here / "gone"}})
        ExpectRun("true", directory, "true\n");
    fs::current_path(before);
}

TEST_F(StartProgramTest, SearchesTheProgramsDirectoryAndThePath) {
    std::string const self = fs::read_symlink("/proc/self/exe").filename().string();
    EXPECT_TRUE(StartProgram(self + " --gtest_list_tests", here.string()));
    for (std::string const& directory : {here.string(), (here / "gone").string(), std::string()})
        EXPECT_TRUE(StartProgram("true", directory)) << directory;
}

TEST_F(StartProgramTest, NamesMayContainBlanksAndAnyCharacter) {
    for (char const* const name : {"two", "two words", "Me\xC3\x9F Ger\xC3\xA4t", "\xE4 not UTF-8"}) {
        WriteScript(name);
        for (char const* const quote : {"", "\""})
            ExpectRun(quote + std::string(name) + quote + " -S", here.string(), name + std::string("\n-S\n"));
    }
}

TEST_F(StartProgramTest, ReportsWhatCannotBeStarted) {
    WriteScript("TEXT", fs::perms::owner_read);
    fs::create_directory(here / "FOLDER");
    for (char const* const line :
         {"", "  ", "\"\"", "NO_SUCH_PROGRAM -S", "NO SUCH PROGRAM", "TEXT", "FOLDER", "./NO_SUCH_PROGRAM"})
        EXPECT_FALSE(StartProgram(line, here.string())) << line;
    WriteScript("SERVER");
    EXPECT_FALSE(StartProgram("SERVER", (here / "gone").string()));
}

}  // namespace
}  // namespace platform
