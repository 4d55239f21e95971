#include "Apps/ColourDesk/DeskLayout.h"
#include "Apps/ColourDesk/DeskTexts.h"

#include <gtest/gtest.h>

#include <array>

namespace colourdesk::test {

namespace {

constexpr DeskMetrics Metrics{24, 16, 145, 170};

bool Overlap(sv::Rectangle const& a, sv::Rectangle const& b) {
    return a.TopLeft().X() <= b.BottomRight().X() && b.TopLeft().X() <= a.BottomRight().X() &&
           a.TopLeft().Y() <= b.BottomRight().Y() && b.TopLeft().Y() <= a.BottomRight().Y();
}

}  // namespace

TEST(DeskLayoutTest, PartsStandApartInsideTheWindow) {
    for (sv::Size const window : {sv::Size(1180, 760), sv::Size(800, 600), sv::Size(3000, 1400)}) {
        DeskLayout const layout = Arrange(window, Metrics);
        std::array<sv::Rectangle, 6> const parts = {
            layout.conditions, layout.table,  layout.plot,
            layout.panel,      layout.status, sv::Rectangle::Of(layout.buttons, {Metrics.buttons, 200})};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_GE(parts[i].TopLeft().X(), 0);
            EXPECT_GE(parts[i].TopLeft().Y(), Metrics.menu);
            EXPECT_LT(parts[i].BottomRight().X(), window.Width());
            EXPECT_LT(parts[i].BottomRight().Y(), window.Height());
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_FALSE(Overlap(parts[i], parts[k])) << i << " and " << k;
        }
        EXPECT_EQ(layout.panel.GetSize().Width(), Metrics.panel);
    }
}

TEST(DeskLayoutTest, AWindowWithoutRoomHasEmptyParts) {
    DeskLayout const layout = Arrange({100, 60}, Metrics);
    EXPECT_EQ(layout.plot.GetSize(), sv::Size(0, 0));
    EXPECT_EQ(layout.table.GetSize(), sv::Size(0, 0));
}

TEST(DeskTextsTest, ArgumentsTakeTheirPlaces) {
    EXPECT_EQ(Filled("%2 of %1: %3 %", {"a%2", "b"}), "b of a%2: %3 %");
    EXPECT_EQ(Filled("%%1", {"a"}), "%a");
}

}  // namespace colourdesk::test
