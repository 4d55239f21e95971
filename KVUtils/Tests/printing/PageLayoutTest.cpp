#include "KVUtils/Source/printing/detail/PageLayout.h"

#include <gtest/gtest.h>

namespace kv::detail {
namespace {

TEST(PageLayoutTest, EdgesFollowThePaper) {
    struct Row {
        char const* what;
        sv::Size paper;
        sv::Size offset;
        int outputHeight;
        PageEdges edges;
    };
    static constexpr Row rows[] = {
        {"a border of 5 mm", {2100, 2970}, {50, 50}, 2870, {50, 2820, 100, 1900}},
        {"no border", {2100, 2970}, {0, 0}, 2970, {100, 2870, 150, 1950}},
        {"landscape", {2970, 2100}, {50, 40}, 2020, {60, 1960, 100, 2770}},
        {"margins inside the border", {2100, 2970}, {160, 120}, 2730, {0, 2729, 0, 1790}},
        {"a printer that ends early", {2100, 2970}, {50, 50}, 2700, {50, 2699, 100, 1900}},
        {"exactly at its end", {2100, 2970}, {50, 50}, 2820, {50, 2819, 100, 1900}},
    };
    for (Row const& row : rows)
        EXPECT_EQ(EdgesOf(row.paper, row.offset, row.outputHeight), row.edges) << row.what;
}

TEST(PageLayoutTest, LinesEndAboveTheFootNote) {
    constexpr PageEdges edges{100, 2870, 150, 1950};
    EXPECT_EQ(BodyBottom(edges, 37, false), 2870);
    EXPECT_EQ(BodyBottom(edges, 37, true), 2870 - 111);
    EXPECT_FALSE(IsPageFull(2833, 37, 2870)) << "the last line touches the edge";
    EXPECT_TRUE(IsPageFull(2834, 37, 2870));
}

TEST(PageLayoutTest, HeadAndFootHaveTheirRules) {
    auto const [headRule, body] = PlaceHead(100, 37);
    EXPECT_EQ(headRule, 174);
    EXPECT_EQ(body, 248);
    auto const [footRule, text] = PlaceFoot({100, 2870, 150, 1950}, 37);
    EXPECT_EQ(footRule, 2792) << "2870 - 77.7, cut";
    EXPECT_EQ(text, 2829);
}

}  // namespace
}  // namespace kv::detail
