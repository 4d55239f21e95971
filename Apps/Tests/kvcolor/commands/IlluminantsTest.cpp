#include "Apps/Tests/kvcolor/Program.h"

namespace kvcolor::test {

TEST(IlluminantsTest, CanBeAskedForByNameAndObserver) {
    auto const rows = RunJson({"illuminants", "d40", "D65", "--observer", "10"})["illuminants"];
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(RunJson({"illuminants"})["illuminants"].size(), 20U);
    EXPECT_EQ(rows[0]["name"], "D40");
    EXPECT_NEAR(rows[1]["x"], 0.3138, 0.0005);
    EXPECT_NEAR(rows[1]["y"], 0.3310, 0.0005);
}

}  // namespace kvcolor::test
