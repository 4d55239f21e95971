#include "Platform/Process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <unistd.h>

namespace platform {
namespace {

namespace fs = std::filesystem;

class StartProgramTest : public testing::Test {
  protected:
    ~StartProgramTest() override { fs::remove_all(directory); }

    static fs::path NewDirectory() {
        std::string name = (fs::temp_directory_path() / "start-program-XXXXXX").string();
        return ::mkdtemp(name.data());
    }
    /// A script that writes where it runs and its arguments, one a line.
    void WriteScript(std::string const& name, fs::perms permissions = fs::perms::owner_all) const {
        std::ofstream(directory / name)
            << "#!/bin/sh\n"
               "{ pwd; for argument; do echo \"$argument\"; done; } > written.new\n"
               "mv written.new written\n";
        fs::permissions(directory / name, permissions);
    }
    /// What the script wrote; it is waited for.
    [[nodiscard]] std::string Written() const {
        for (int i = 0; i < 1000 && !fs::exists(directory / "written"); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        std::ifstream file(directory / "written");
        return {std::istreambuf_iterator(file), {}};
    }

    fs::path directory = fs::canonical(NewDirectory());
};

TEST_F(StartProgramTest, LooksInTheDirectoryFirstAndRunsThere) {
    WriteScript("true");  // there is one on the system's path too
    EXPECT_TRUE(StartProgram("true -S  -LNG 49 \"two words\" \"\"", directory.string()));
    EXPECT_EQ(Written(), directory.string() + "\n-S\n-LNG\n49\ntwo words\n\n");
}

TEST_F(StartProgramTest, LooksInTheCurrentDirectoryWhereNoneIsGiven) {
    WriteScript("SERVER");
    fs::path const before = fs::current_path();
    fs::current_path(directory);
    EXPECT_TRUE(StartProgram("SERVER"));
    fs::current_path(before);
    EXPECT_EQ(Written(), directory.string() + "\n");
}

TEST_F(StartProgramTest, LooksBesideTheRunningProgramAndOnThePath) {
    std::string const self = fs::read_symlink("/proc/self/exe").filename().string();
    EXPECT_TRUE(StartProgram(self + " --gtest_list_tests", directory.string()));
    EXPECT_TRUE(StartProgram("true", directory.string()));
}

TEST_F(StartProgramTest, SaysWhatCannotBeStarted) {
    WriteScript("TEXT", fs::perms::owner_read);
    fs::create_directory(directory / "FOLDER");
    for (char const* const line :
         {"", "  ", "\"\"", "NO_SUCH_PROGRAM -S", "TEXT", "FOLDER", "./NO_SUCH_PROGRAM"}) {
        EXPECT_FALSE(StartProgram(line, directory.string())) << line;
    }
    WriteScript("SERVER");
    EXPECT_FALSE(StartProgram("SERVER", (directory / "nowhere").string()));
}

}  // namespace
}  // namespace platform
