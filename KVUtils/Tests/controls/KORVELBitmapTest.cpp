#include "KVUtils/Source/controls/KORVELBitmap.h"
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {
namespace {

using sv::BitmapPixel;

constexpr BitmapPixel Ground(200, 0, 0);
constexpr BitmapPixel Ink(10, 20, 31);
constexpr sv::Brush Blue(sv::Color(0, 0, 0xFFFF));
constexpr BitmapPixel BluePixel(0, 0, 255);

/// 4 x 4 pixels of ground with a square of ink in the middle; the finer copy the same with twice the pixels.
KORVELBitmap Sample() {
    auto const draw = [](std::int16_t grain) {
        sv::Bitmap picture(
            sv::Size(static_cast<std::int16_t>(4 * grain), static_cast<std::int16_t>(4 * grain)), Ground);
        picture.Paste(
            grain, grain,
            sv::Bitmap(sv::Size(static_cast<std::int16_t>(2 * grain), static_cast<std::int16_t>(2 * grain)),
                       Ink));
        return picture;
    };
    KORVELBitmap sample(draw(1));
    sample.SetFine(draw(2));
    return sample;
}

TEST(KORVELBitmap, GetsAMarginAndAGround) {
    KORVELBitmap picture = Sample();
    picture.SetColorUndVergroesserung(Blue, 1, 2, 3, 4);
    EXPECT_EQ(picture.GetSizePixel(), sv::Size(7, 11));
    EXPECT_EQ(picture.At(0, 0), BluePixel);
    EXPECT_EQ(picture.At(1, 3), BluePixel) << "the picture's own ground";
    EXPECT_EQ(picture.At(2, 4), Ink);
    ASSERT_NE(picture.GetFine(), nullptr);
    EXPECT_EQ(picture.GetFine()->GetSizePixel(), sv::Size(14, 22));
    EXPECT_EQ(picture.GetFine()->At(3, 8), BluePixel);
    EXPECT_EQ(picture.GetFine()->At(4, 8), Ink);

    KORVELBitmap inked = Sample();
    inked.SetBackground(Blue, {1, 1});
    EXPECT_EQ(inked.At(2, 2), BluePixel) << "every pixel of that colour";
    EXPECT_EQ(inked.At(0, 0), Ground);
}

TEST(KORVELBitmap, IsGreyed) {
    KORVELBitmap picture = Sample();
    picture.Inaktiv();
    constexpr BitmapPixel grey(20, 20, 20);  // 61 / 3
    EXPECT_EQ(picture.At(0, 0), Ground);
    EXPECT_EQ(picture.At(1, 1), Ground) << "the stipple";
    EXPECT_EQ(picture.At(2, 1), grey);
    EXPECT_EQ(picture.At(2, 2), grey);
    EXPECT_EQ(picture.GetFine()->At(3, 3), Ground) << "the same stipple, not a finer one";
    EXPECT_EQ(picture.GetFine()->At(4, 3), grey);
}

}  // namespace
}  // namespace kv::test
