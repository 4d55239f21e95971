#include "SV/ui/MenuBar.h"

#include <gtest/gtest.h>

namespace sv {
namespace {

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
