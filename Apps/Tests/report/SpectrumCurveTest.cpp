#include "Apps/report/SpectrumCurve.h"

#include <gtest/gtest.h>

namespace report::test {

TEST(SpectrumCurveTest, LightColoursAreDarkenedUntilALineShows) {
    constexpr sv::Color yellow(0xFFFF, 0xE000, 0x2000);
    sv::Color const shown = Legible(yellow);
    EXPECT_LT(shown.GetRed(), yellow.GetRed());
    EXPECT_GT(shown.GetRed(), shown.GetBlue()) << "still a yellow";
    constexpr sv::Color blue(0x1000, 0x1000, 0x8000);
    EXPECT_EQ(Legible(blue), blue);
}

}  // namespace report::test
