#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/dialogs/Directory.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "KVUtils/Source/dialogs/TextInputDialog.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"
#include "KVUtils/Tests/DisplaySupport.h"
#include "Platform/Tests/TemporaryDirectory.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kv::test {
namespace {

namespace fs = std::filesystem;

KOBitmapButton& LastButton(sv::Window const& dialog) {
    return dynamic_cast<KOBitmapButton&>(*dialog.GetChildren().back());
}

TEST(WaitVisualizer, IsShownWhileTheProgramWorks) {
    sv::Window parent(nullptr);
    parent.SetPosSizePixel({100, 100}, {760, 404});
    {
        WaitVisualizer2 window(&parent, "Measuring", "Please wait");
        EXPECT_EQ(window.GetPosPixel(), sv::Point(300, 250)) << "centred over its parent";
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), &window);
        EXPECT_TRUE(sv::Application::IsWait());
        window.WasClosed();
        EXPECT_TRUE(window.IsVisible());
        EXPECT_EQ(sv::headless::Record(window).size(), 3U) << "background, picture, empty bar";
        window.SetPercent(50);
        auto const calls = sv::headless::Record(window);
        ASSERT_EQ(calls.size(), 4U);
        EXPECT_EQ(calls[3].from, sv::Point(17, 73));
        EXPECT_EQ(calls[3].to, sv::Point(179, 86));
        window.SetPercent(500);
        EXPECT_EQ(window.GetPercent(), 100);
        EXPECT_EQ(sv::headless::Record(window)[3].to, sv::Point(342, 86)) << "inside its frame";
        window.ChangeText("Half done");
        EXPECT_EQ(window.GetChildren().front()->GetText(), "Half done");
    }
    EXPECT_FALSE(sv::Application::IsWait());
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), nullptr);
    for (bool const byButton : {true, false}) {
        AbbruchDialog dialog(nullptr, "Export", "Please wait");
        EXPECT_EQ(dialog.IsAborted(), 0);
        Person const person([&] { byButton ? LastButton(dialog).WasClicked() : dialog.WasClosed(); });
        EXPECT_EQ(dialog.IsAborted(), 1);
        EXPECT_TRUE(dialog.IsVisible()) << "until it is destroyed";
    }
}

TEST(TextInputDialog, ReturnsTheInput) {
    sv::Window parent(nullptr);
    TextInputDialog dialog(&parent, "Name", "Name of the sample:");
    auto& edit = dynamic_cast<sv::Edit&>(*dialog.GetChildren()[1]);
    sv::String text = "old";
    EXPECT_EQ(dialog.Input(text), 0) << "without a display";
    for (bool const isOk : {true, false}) {
        Person const person([&] {
            EXPECT_FALSE(parent.IsEnabled());
            EXPECT_EQ(edit.GetText(), text);
            edit.TextHasChanged(isOk ? "new" : "newer");
            (isOk ? dynamic_cast<KOBitmapButton&>(*dialog.GetChildren()[2]) : LastButton(dialog))
                .WasClicked();
        });
        EXPECT_EQ(dialog.Input(text), isOk ? 1 : 0);
        EXPECT_EQ(text, "new");
    }
    EXPECT_TRUE(parent.IsEnabled());
}

TEST(Directory, Patterns) {
    for (auto const& [name, patterns, isMatch] : {std::tuple("ink.csv", "*.csv", true),
                                                  {"INK.CSV", "*.csv", true},
                                                  {"ink.csv.bak", "*.csv", false},
                                                  {"ink.csv", "*.txt *.c?v", true},
                                                  {"ink", "*.*", true},
                                                  {"ink", "", false},
                                                  {"ink", "  ", false},
                                                  {"aXbXc", "a*b*c", true},
                                                  {"aXbXcd", "a*b*c", false},
                                                  {"abab", "*ab", true},
                                                  {"ink", "ink?", false},
                                                  {"ink", "ink***", true},
                                                  {"", "*", true}})
        EXPECT_EQ(detail::MatchesPattern(name, patterns), isMatch) << name << ' ' << patterns;
}

TEST(Directory, CreatesAndLists) {
    tests::TemporaryDirectory const owner;
    fs::path const& root = owner.Path();
    Directory folder(sv::FromNativePath((root / "a" / "b").string()));
    EXPECT_TRUE(folder.GetFileNames().empty());
    EXPECT_TRUE(folder.Create());
    EXPECT_TRUE(folder.Create()) << "exists";
    for (char8_t const* const name : {u8"gr\u00FCn.csv", u8"blau.csv", u8"\u8272.csv", u8"notes.txt"})
        std::ofstream(root / "a" / "b" / fs::path(name)) << "1";
    fs::create_directory(root / "a" / "b" / "folder.csv");
    EXPECT_EQ(folder.GetFileNames("*.csv"), (std::vector<sv::String>{"blau.csv", "gr\xFCn.csv"}));
    EXPECT_EQ(folder.GetFileNames().size(), 3U);
    Directory below(folder.GetFull() + "/notes.txt");
    EXPECT_FALSE(below.Create()) << "a file has this name";
}

TEST(MyFileDialog, AddsAnExtensionUnlessOneMatches) {
    std::vector<sv::FileFilter> const filters = {
        {"Tables", "*.csv *.txt"}, {"Chart", "*.CGATS"}, {"All files", "*.*"}, {"Notes", "note*"}};
    for (auto const& [typed, filter, path] : {std::tuple("a/ink", 0U, "a/ink.csv"),
                                              {"a/ink", 1U, "a/ink.CGATS"},
                                              {"a/ink", 2U, "a/ink"},
                                              {"a/ink", 3U, "a/ink"},
                                              {"a/ink", 4U, "a/ink"},
                                              {"a.b/ink", 0U, "a.b/ink.csv"},
                                              {"ink 1.5", 0U, "ink 1.5.csv"},
                                              {"ink.TXT", 0U, "ink.TXT"},
                                              {"ink.csv", 1U, "ink.csv"}})  // of another filter
        EXPECT_EQ(detail::WithExtension(typed, filters, filter), path) << typed;
    EXPECT_EQ(detail::WithExtension("ink", {}, 0), "ink");
}

TEST(MyFileDialog, AsksBeforeItReplaces) {
    MyFileDialog hidden(nullptr, MyFileDialog::Open, "Open");
    hidden.SetPath("folder");
    EXPECT_EQ(hidden.Execute(), 0) << "without a display";
    EXPECT_EQ(hidden.GetPath(), "folder");
    sv::String folder = "begin";
    EXPECT_EQ(BrowseForFolder(nullptr, "Folder").Execute(folder), 0);

    tests::TemporaryDirectory const directory;
    fs::path const there = directory.Path() / "replaced.csv";
    std::ofstream(there) << "1";
    sv::String const path = sv::FromNativePath(there.string());
    sv::String const typed = path.Copy(0, path.Len() - 4);
    std::vector<sv::BoxAnswer> boxes = {sv::BoxAnswer::No, sv::BoxAnswer::Yes};
    sv::BoxHandler const before = sv::SetBoxHandler([&](sv::MessBox const& box) {
        EXPECT_EQ(box.DefaultAnswer(), sv::BoxAnswer::No);
        EXPECT_EQ(box.GetText(), path + " already exists. Replace it?");
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
    EXPECT_EQ(person.asked[1].start, path) << "the next question begins with the name";

    person.answers = {{path}};
    MyFileDialog open(nullptr, MyFileDialog::Open, "Open");
    EXPECT_EQ(open.Execute(), 1) << "opening does not ask";
    EXPECT_EQ(open.GetPath(), path);
    EXPECT_EQ(person.asked.back().purpose, sv::FilePurpose::Open);
    person.answers = {{"chosen"}};
    EXPECT_EQ(BrowseForFolder(nullptr, "Folder").Execute(folder), 1);
    EXPECT_EQ(folder, "chosen");
    EXPECT_EQ(person.asked.back().start, "begin");
    sv::SetBoxHandler(before);
}

}  // namespace
}  // namespace kv::test
