// Runs the program on the arguments in golden/NAME.args, one in a line, and compares what it writes with
// NAME.out and NAME.err (no file: nothing). Paths are relative to Apps/, so that no output depends on where
// the tree lies. golden/errors.tsv has a message in each row, then the arguments that it answers. With
// KV_UPDATE_GOLDEN set, the files are written instead.
#include "Apps/Tests/kvcolor/Program.h"
#include "Platform/Tests/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>

namespace kvcolor::test {

namespace {

namespace fs = std::filesystem;

fs::path const Golden = KV_APPS_TESTS "/kvcolor/golden";

/// Runs the tests of this file in Apps/.
class GoldenTest : public testing::Test {
  public:
    GoldenTest() { fs::current_path(fs::path(KV_APPS_DATA).parent_path()); }
    ~GoldenTest() override { fs::current_path(before_); }

  private:
    fs::path before_ = fs::current_path();
};

Arguments SplitTabs(std::string const& line) {
    Arguments cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '\t');) cells.push_back(cell);
    return cells;
}

void Compare(fs::path const& file, std::string const& written) {
    if (std::getenv("KV_UPDATE_GOLDEN") == nullptr) {
        EXPECT_EQ(written, tests::Bytes(file)) << file;
    } else if (written.empty()) {
        fs::remove(file);
    } else {
        tests::PutBytes(file, written);
    }
}

}  // namespace

TEST_F(GoldenTest, AnswersAreTheFiles) {
    int count = 0;
    for (auto const& entry : fs::directory_iterator(Golden)) {
        fs::path file = entry.path();
        if (file.extension() != ".args") continue;
        ++count;
        Arguments arguments;
        for (std::string const& line : LinesOf(tests::Bytes(file))) arguments.push_back(line);
        Outcome const outcome = RunProgram(arguments);
        EXPECT_EQ(outcome.status, 0) << file;
        Compare(file.replace_extension(".out"), outcome.out);
        Compare(file.replace_extension(".err"), outcome.err);
    }
    EXPECT_GT(count, 0);
}

TEST_F(GoldenTest, ErrorsAreTheRows) {
    std::string updated;
    for (std::string const& line : LinesOf(tests::Bytes(Golden / "errors.tsv"))) {
        Arguments const row = SplitTabs(line);
        std::string const message = FailureOf({row.begin() + 1, row.end()});
        if (std::getenv("KV_UPDATE_GOLDEN") == nullptr) {
            EXPECT_EQ(message, row[0] + '\n') << line;
        }
        updated += message.substr(0, message.find('\n')) + line.substr(line.find('\t')) + '\n';
    }
    if (std::getenv("KV_UPDATE_GOLDEN") != nullptr) Compare(Golden / "errors.tsv", updated);
    EXPECT_TRUE(RunProgram({}).err.starts_with("kvcolor: no command given (choose from convert, "));
}

TEST_F(GoldenTest, NoTextOfAFileControlsTheTerminal) {
    std::string const path = WriteFile("hostile.txt", {{"a\x1B[2Jb", "0.5"}, {"c", "0.5"}});
    for (Arguments const& arguments : std::vector<Arguments>{
             {"convert", path}, {"convert", path, "--only", "x"}, {"convert", path, "--only", "x\ny"}, {}}) {
        Outcome const outcome = RunProgram(arguments);
        for (std::string const& line : LinesOf(outcome.err))
            EXPECT_TRUE(line.starts_with("kvcolor: ")) << line;
        EXPECT_EQ((outcome.out + outcome.err).find('\x1B'), std::string::npos);
    }
}

TEST_F(GoldenTest, VersionIsThatOfTheProject) {
    std::ifstream project(KV_APPS_DATA "/../../CMakeLists.txt");
    std::string const text(std::istreambuf_iterator<char>(project), {});
    std::string const version = RunProgram({"--version"}).out.substr(8);
    EXPECT_NE(text.find("project(KVUtils VERSION " + version.substr(0, version.size() - 1) + ' '),
              std::string::npos);
}

}  // namespace kvcolor::test
