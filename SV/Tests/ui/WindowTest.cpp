#include "SV/core/Application.h"
#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/MenuBar.h"
#include "SV/ui/Window.h"

#include <gtest/gtest.h>

#include <string>

namespace sv {
namespace {

constexpr Color Pure(0xFFFF, 0, 0);

// A window that logs its events.
class Logged : public Window {
  public:
    using Window::Window;
    void Paint(Rectangle const& area) override {
        log += "paint " + std::to_string(area.BottomRight().X()) + ' ';
        DrawPixel({0, 0}, Pure);
    }
    void Resize() override { log += "resize "; }
    void GetFocus() override { log += "focus "; }
    void LoseFocus() override { log += "blur "; }

    std::string log;
};

TEST(WindowTest, ReportsWhatHappens) {
    Logged parent(nullptr);
    Logged child(&parent);
    parent.SetPosSizePixel({5, 5}, {30, 20});
    parent.SetPosSizePixel({6, 6}, {30, 20});
    EXPECT_EQ(parent.log, "resize ") << "an equal size is not a change";
    EXPECT_EQ(child.ChangePosPixel({10, 10}), Point());
    child.ChangeSizePixel({4, 4});

    EXPECT_FALSE(child.IsVisible());
    EXPECT_NE(headless::Render(parent).At(10, 10).ToColor(), Pure);
    child.Show();
    Bitmap const picture = headless::Render(parent);
    EXPECT_EQ(picture.At(10, 10).ToColor(), Pure) << "the child's own corner";
    EXPECT_FALSE(headless::IsInvalid(child));
    child.Invalidate();
    EXPECT_TRUE(headless::IsInvalid(child));

    parent.log = child.log = "";
    child.GrabFocus();
    parent.GrabFocus();
    parent.Disable();
    child.Disable();
    child.GrabFocus();
    EXPECT_EQ(child.log, "focus blur ");
    EXPECT_EQ(parent.log, "focus ");
    EXPECT_TRUE(parent.HasFocus()) << "a disabled window gets no focus";
}

TEST(WindowTest, ClosingTheMainWindowEndsTheProgram) {
    static bool runs;
    Application::SetUserEventHdl([](unsigned long, void*) {
        runs = true;
        Application::Quit();
    });
    Window main(nullptr);
    Window other(nullptr);
    for (Window* const named : {static_cast<Window*>(nullptr), &main}) {
        Application::SetAppWindow(named);
        runs = false;
        Application::PostUserEvent(1, nullptr);
        main.WasClosed();
        Application::Execute();
        EXPECT_FALSE(runs);
        Application::Reschedule();
        Application::Execute();  // consumes the event's own `Quit`
    }
    other.Show();
    runs = false;
    Application::PostUserEvent(1, nullptr);
    other.WasClosed();
    Application::Execute();
    EXPECT_TRUE(runs) << "another window";
    EXPECT_FALSE(other.IsVisible());
    Application::SetAppWindow(nullptr);
    Application::SetUserEventHdl(nullptr);
}

TEST(WindowTest, ADestroyedWindowIsForgotten) {
    Window parent(nullptr);
    {
        Window child(&parent);
        child.GrabFocus();
        child.CaptureMouse();
        EXPECT_EQ(parent.GetChildren().size(), 1U);
    }
    EXPECT_TRUE(parent.GetChildren().empty());
    parent.ReleaseMouse();
    EXPECT_FALSE(parent.HasFocus() || parent.HasCapture());
}

constexpr unsigned short Open = 5;
constexpr unsigned short Quit = 9;

struct Receiver {
    MenuBar* bar = nullptr;
    unsigned short chosen = 0;

    long Choose(MenuBar* sender) {
        EXPECT_EQ(sender, bar);
        chosen = sender->GetCurItemId();
        return 0;
    }
};

TEST(MenuBar, ReportsTheItemChosen) {
    Window window(nullptr);
    window.ChangeSizePixel({300, 200});
    MenuBar bar(&window);
    Receiver receiver{&bar};
    Link const link = Link::To<&Receiver::Choose>(receiver);
    bar.InsertItem(Quit, "without a menu", link);
    bar.InsertMenu("~File");
    bar.InsertItem(Open, "~Open", link);
    bar.InsertSeparator();
    bar.InsertItem(Quit, "~Quit", link);
    EXPECT_EQ(bar.GetCurItemId(), 0);
    bar.EntryWasSelected(2);
    EXPECT_EQ(receiver.chosen, Quit);
    bar.EnableItem(Open, false);
    bar.EntryWasSelected(1);
    bar.EntryWasSelected(3);
    bar.EntryWasSelected(0);
    EXPECT_EQ(receiver.chosen, Quit) << "not a separator, an entry past the end or a disabled item";

    bar.CheckItem(Open, true);
    bar.CheckItem(0, true);
    EXPECT_TRUE(bar.IsItemChecked(Open));
    EXPECT_FALSE(bar.IsItemChecked(Quit) || bar.IsItemChecked(0)) << "separators have no id";
    EXPECT_FALSE(bar.IsItemEnabled(Open) || bar.IsItemEnabled(77));

    int const height = bar.Fit();
    EXPECT_EQ(bar.GetPosPixel(), Point());
    EXPECT_EQ(bar.GetSizePixel(), Size(300, height));
    EXPECT_GT(height, bar.GetTextSize("X").Height());
}

}  // namespace
}  // namespace sv
