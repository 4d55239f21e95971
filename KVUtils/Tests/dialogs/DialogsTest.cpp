#include "KVUtils/Source/dialogs/TextInputDialog.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"
#include "KVUtils/Tests/DisplaySupport.h"

#include <gtest/gtest.h>

namespace kv::test {
namespace {

KOBitmapButton& LastButton(sv::Window const& dialog) {
    return dynamic_cast<KOBitmapButton&>(*dialog.GetChildren().back());
}

TEST(WaitVisualizer, StandsWhileTheProgramWorks) {
    sv::Window parent(nullptr);
    parent.SetPosSizePixel({100, 100}, {760, 404});
    {
        WaitVisualizer2 window(&parent, "Measuring", "Please wait");
        EXPECT_EQ(window.GetPosPixel(), sv::Point(300, 250)) << "in the middle of its parent";
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), &window);
        EXPECT_TRUE(sv::Application::IsWait());
        window.WasClosed();
        EXPECT_TRUE(window.IsVisible());
        EXPECT_EQ(sv::headless::Record(window).size(), 3U) << "the ground, the picture, an empty bar";
        window.SetPercent(50);
        auto const calls = sv::headless::Record(window);
        ASSERT_EQ(calls.size(), 4U);
        EXPECT_EQ(calls[3].from, sv::Point(17, 73));
        EXPECT_EQ(calls[3].to, sv::Point(179, 86));
        window.SetPercent(500);
        EXPECT_EQ(window.GetPercent(), 100);
        EXPECT_EQ(sv::headless::Record(window)[3].to, sv::Point(342, 86)) << "within its frame";
        window.ChangeText("Half done");
        EXPECT_EQ(window.GetChildren().front()->GetText(), "Half done");
    }
    EXPECT_FALSE(sv::Application::IsWait());
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), nullptr);
}

TEST(AbbruchDialog, IsAbortedByItsButtonAndByClosing) {
    for (bool const byButton : {true, false}) {
        AbbruchDialog dialog(nullptr, "Export", "Please wait");
        EXPECT_EQ(dialog.IsAborted(), 0);
        Person const person([&] { byButton ? LastButton(dialog).WasClicked() : dialog.WasClosed(); });
        EXPECT_EQ(dialog.IsAborted(), 1);
        EXPECT_TRUE(dialog.IsVisible()) << "until the work has ended";
    }
}

TEST(TextInputDialog, AnswersWhatWasTyped) {
    sv::Window parent(nullptr);
    TextInputDialog dialog(&parent, "Name", "Name of the sample:");
    auto& edit = dynamic_cast<sv::Edit&>(*dialog.GetChildren()[1]);
    sv::String text = "old";
    EXPECT_EQ(dialog.Input(text), 0) << "without a display";
    {
        Person const person([&] {
            EXPECT_FALSE(parent.IsEnabled());
            EXPECT_EQ(edit.GetText(), "old");
            edit.TextHasChanged("new");
            dynamic_cast<KOBitmapButton&>(*dialog.GetChildren()[2]).WasClicked();
        });
        EXPECT_EQ(dialog.Input(text), 1);
        EXPECT_EQ(text, "new");
        EXPECT_TRUE(parent.IsEnabled());
    }
    Person const person([&] {
        edit.TextHasChanged("newer");
        LastButton(dialog).WasClicked();
    });
    EXPECT_EQ(dialog.Input(text), 0);
    EXPECT_EQ(text, "new");
}

}  // namespace
}  // namespace kv::test
