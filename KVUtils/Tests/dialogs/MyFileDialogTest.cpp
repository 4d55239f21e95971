#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "KVUtils/Tests/DisplaySupport.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kv::test {
namespace {

namespace fs = std::filesystem;

TEST(MyFileDialog, ExtensionsAreAddedWhereNoneFits) {
    std::vector<sv::FileFilter> const filters = {
        {"Tables", "*.csv *.txt"}, {"Chart", "*.CGATS"}, {"All files", "*.*"}, {"Notes", "note*"}};
    struct Row {
        char const* typed;
        std::size_t filter;
        char const* path;
    };
    static constexpr Row rows[] = {
        {"a/ink", 0, "a/ink.csv"},     {"a/ink", 1, "a/ink.CGATS"},
        {"a/ink", 2, "a/ink"},         {"a/ink", 3, "a/ink"},
        {"a/ink", 4, "a/ink"},         {"a.b/ink", 0, "a.b/ink.csv"},
        {"ink 1.5", 0, "ink 1.5.csv"}, {"ink.TXT", 0, "ink.TXT"},
        {"ink.csv", 1, "ink.csv"},  // another filter's: the person knows best
    };
    for (Row const& row : rows)
        EXPECT_EQ(detail::WithExtension(row.typed, filters, row.filter), row.path) << row.typed;
    EXPECT_EQ(detail::WithExtension("ink", {}, 0), "ink");
}

TEST(MyFileDialog, WithoutADisplayNothingIsChosen) {
    MyFileDialog dialog(nullptr, MyFileDialog::Open, "Open");
    dialog.SetPath("folder");
    EXPECT_EQ(dialog.Execute(), 0);
    EXPECT_EQ(dialog.GetPath(), "folder");
    sv::String folder = "other";
    EXPECT_EQ(BrowseForFolder(nullptr, "Folder").Execute(folder), 0);
    EXPECT_EQ(folder, "other");
}

TEST(MyFileDialog, AsksBeforeItReplaces) {
    fs::path const there = fs::path(testing::TempDir()) / "kv_replaced.csv";
    std::ofstream(there) << "1";
    sv::String const path = sv::FromNativePath(there.string());
    sv::String const typed = path.Copy(0, path.Len() - 4);
    std::vector<sv::BoxAnswer> boxes = {sv::BoxAnswer::No, sv::BoxAnswer::Yes};
    sv::BoxHandler const before = sv::SetBoxHandler([&](sv::MessBox const& box) {
        EXPECT_EQ(box.DefaultAnswer(), sv::BoxAnswer::No);
        EXPECT_EQ(box.GetText(), path + "\nThis file is there already. Do you want to replace it?");
        sv::BoxAnswer const answer = boxes.front();
        boxes.erase(boxes.begin());
        return answer;
    });
    Person person(nullptr);
    person.answers = {{typed}, {typed}};
    MyFileDialog dialog(nullptr, MyFileDialog::Save, "Export");
    dialog.AddFilter("Tables", "*.csv");
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_EQ(dialog.GetPath(), path);
    EXPECT_TRUE(boxes.empty());
    ASSERT_EQ(person.asked.size(), 2U);
    EXPECT_EQ(person.asked[1].start, path) << "the question that follows begins with the name";

    person.answers = {{path}};
    MyFileDialog open(nullptr, MyFileDialog::Open, "Open");
    EXPECT_EQ(open.Execute(), 1) << "and opening replaces nothing";
    EXPECT_EQ(open.GetPath(), path);
    EXPECT_EQ(person.asked.back().purpose, sv::FilePurpose::Open);
    person.answers = {{"chosen"}};
    sv::String folder = "begin";
    EXPECT_EQ(BrowseForFolder(nullptr, "Folder").Execute(folder), 1);
    EXPECT_EQ(folder, "chosen");
    EXPECT_EQ(person.asked.back().start, "begin");
    sv::SetBoxHandler(before);
    fs::remove(there);
}

}  // namespace
}  // namespace kv::test
