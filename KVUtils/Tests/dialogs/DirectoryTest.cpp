#include "KVUtils/Source/dialogs/Directory.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kv::test {
namespace {

namespace fs = std::filesystem;

TEST(Directory, PatternsAsPeopleWriteThem) {
    struct Row {
        char const* name;
        char const* patterns;
        bool matches;
    };
    static constexpr Row rows[] = {
        {"ink.csv", "*.csv", true},
        {"INK.CSV", "*.csv", true},
        {"ink.csv.bak", "*.csv", false},
        {"ink.csv", "*.txt *.c?v", true},
        {"ink", "*.*", true},
        {"ink", "*", true},
        {"ink", "", false},
        {"ink", "  ", false},
        {"aXbXc", "a*b*c", true},
        {"aXbXcd", "a*b*c", false},
        {"abab", "*ab", true},
        {"ink", "ink?", false},
        {"ink", "ink***", true},
        {"", "*", true},
    };
    for (Row const& row : rows)
        EXPECT_EQ(detail::MatchesPattern(row.name, row.patterns), row.matches)
            << row.name << ' ' << row.patterns;
}

TEST(Directory, HasItsFiles) {
    fs::path const root = fs::path(testing::TempDir()) / "kv_directory_test";
    fs::remove_all(root);
    Directory folder(sv::FromNativePath((root / "a" / "b").string()));
    EXPECT_TRUE(folder.GetFileNames().empty());
    EXPECT_TRUE(folder.Create());
    EXPECT_TRUE(folder.Create()) << "there already";
    for (char8_t const* const name : {u8"gr\u00FCn.csv", u8"blau.csv", u8"\u8272.csv", u8"notes.txt"})
        std::ofstream(root / "a" / "b" / fs::path(name)) << "1";
    fs::create_directory(root / "a" / "b" / "folder.csv");
    EXPECT_EQ(folder.GetFileNames("*.csv"), (std::vector<sv::String>{"blau.csv", "gr\xFCn.csv"}));
    EXPECT_EQ(folder.GetFileNames().size(), 3U);
    Directory below(folder.GetFull() + "/notes.txt");
    EXPECT_FALSE(below.Create()) << "a file is in the way";
    fs::remove_all(root);
}

}  // namespace
}  // namespace kv::test
