#include "Platform/Process.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "Platform/Tests/TestSystem.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

namespace fs = std::filesystem;

class StartProgramTest : public testing::Test {
  protected:
    /// Writes a script that writes where it runs, its name and its arguments, one per line.
    void WriteScript(std::string const& name, fs::perms permissions = fs::perms::owner_all) const {
        tests::PutBytes(here / name,
                        "#!/bin/sh\n"
                        "{ pwd; basename \"$0\"; for a; do echo \"$a\"; done; } > w.new\nmv w.new written\n");
        fs::permissions(here / name, permissions);
    }
    /// Waits for the text of the script, and removes it.
    [[nodiscard]] std::string Written() const {
        EXPECT_TRUE(tests::WaitUntil([&] { return fs::exists(here / "written"); }));
        std::string const text = tests::Bytes(here / "written");
        fs::remove(here / "written");
        return text.starts_with(here.string() + '\n') ? text.substr(here.string().size() + 1)
                                                      : "from " + text;
    }

    tests::TemporaryDirectory directory_;
    fs::path here = fs::canonical(directory_.Path());
};

TEST_F(StartProgramTest, SearchesTheDirectoryFirstAndRunsThere) {
    WriteScript("true");  // the system's path has one as well
    EXPECT_TRUE(StartProgram("true -S  -LNG 49 \"two words\" \"\"", here.string()));
    EXPECT_EQ(Written(), "true\n-S\n-LNG\n49\ntwo words\n\n");
    EXPECT_TRUE(StartProgram("./true", here.string()));
    EXPECT_EQ(Written(), "true\n");
    fs::path const before = fs::current_path();
    fs::current_path(here);
    for (std::optional<std::string> const& directory :
         {std::optional<std::string>(), {""}, {here / "gone"}}) {
        EXPECT_TRUE(StartProgram("true", directory)) << directory.value_or("none");
        EXPECT_EQ(Written(), "true\n") << "else the current directory is first";
    }
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
        EXPECT_TRUE(StartProgram(name + std::string(" -S"), here.string())) << name;
        EXPECT_EQ(Written(), name + std::string("\n-S\n"));
        EXPECT_TRUE(StartProgram('"' + std::string(name) + "\" -S", here.string())) << name;
        EXPECT_EQ(Written(), name + std::string("\n-S\n"));
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
