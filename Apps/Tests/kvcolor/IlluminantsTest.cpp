#include "Apps/Tests/kvcolor/Program.h"

namespace kvcolor::test {

TEST(IlluminantsTest, HaveTheirPublishedWhitePoints) {
    auto const rows = RunJson({"illuminants"})["illuminants"];
    EXPECT_EQ(rows.size(), 20U);
    struct WhitePoint {
        char const* name;
        double x, y;
    };
    // CIE 15, 2 degrees. The sum by 10 nm stays within 0.001 of the published sums by 1 nm.
    for (WhitePoint const& published : {WhitePoint{"A", 0.4476, 0.4074},
                                        {"C", 0.3101, 0.3162},
                                        {"D50", 0.3457, 0.3585},
                                        {"D55", 0.3324, 0.3474},
                                        {"D65", 0.3127, 0.3290},
                                        {"D75", 0.2990, 0.3149},
                                        {"F2", 0.3721, 0.3751},
                                        {"F7", 0.3129, 0.3292},
                                        {"F11", 0.3805, 0.3769}}) {
        auto const row =
            std::ranges::find_if(rows, [&](auto const& r) { return r["name"] == published.name; });
        ASSERT_NE(row, rows.end()) << published.name;
        EXPECT_NEAR((*row)["x"], published.x, 0.001) << published.name;
        EXPECT_NEAR((*row)["y"], published.y, 0.001) << published.name;
        EXPECT_NEAR((*row)["Y"], 100, 1e-4) << published.name;
    }
}

TEST(IlluminantsTest, CanBeAskedForByNameAndObserver) {
    auto const rows = RunJson({"illuminants", "d40", "D65", "--observer", "10"})["illuminants"];
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["name"], "D40");
    EXPECT_NEAR(rows[1]["x"], 0.3138, 0.0005);
    EXPECT_NEAR(rows[1]["y"], 0.3310, 0.0005);
}

}  // namespace kvcolor::test
