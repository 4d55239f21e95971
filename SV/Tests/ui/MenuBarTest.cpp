#include "SV/ui/MenuBar.h"

#include <gtest/gtest.h>

namespace sv {

namespace {

constexpr unsigned short Open = 5;
constexpr unsigned short Quit = 9;

struct Desk {
    MenuBar* bar = nullptr;
    unsigned short chosen = 0;

    long Take(MenuBar* sender) {
        EXPECT_EQ(sender, bar);
        chosen = sender->GetCurItemId();
        return 0;
    }
};

TEST(MenuBar, TellsWhichItemWasChosen) {
    Window window(nullptr);
    MenuBar bar(&window);
    Desk desk{&bar};
    Link const link = Link::To<&Desk::Take>(desk);
    bar.InsertItem(Quit, "before the first menu", link);
    bar.InsertMenu("~File");
    bar.InsertItem(Open, "~Open", link);
    bar.InsertSeparator();
    bar.InsertItem(Quit, "~Quit", link);
    EXPECT_EQ(bar.GetCurItemId(), 0);
    bar.EntryWasSelected(2);
    EXPECT_EQ(desk.chosen, Quit);
    bar.EntryWasSelected(1);
    EXPECT_EQ(desk.chosen, Quit) << "a line";
    bar.EntryWasSelected(3);
    bar.EnableItem(Open, false);
    bar.EntryWasSelected(0);
    EXPECT_EQ(desk.chosen, Quit);
    EXPECT_FALSE(bar.IsItemEnabled(Open));

    bar.CheckItem(Open, true);
    bar.CheckItem(0, true);
    EXPECT_TRUE(bar.IsItemChecked(Open));
    EXPECT_FALSE(bar.IsItemChecked(Quit));
    EXPECT_FALSE(bar.IsItemChecked(0)) << "lines have no number";
    EXPECT_FALSE(bar.IsItemEnabled(77));
}

TEST(MenuBar, StandsAtTheTop) {
    Window window(nullptr);
    window.ChangeSizePixel({300, 200});
    MenuBar bar(&window);
    int const height = bar.Fit();
    EXPECT_EQ(bar.GetPosPixel(), Point());
    EXPECT_EQ(bar.GetSizePixel(), Size(300, height));
    EXPECT_GT(height, bar.GetTextSize("X").Height());
}

}  // namespace

}  // namespace sv
