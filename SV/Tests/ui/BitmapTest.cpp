#include "SV/ui/Bitmap.h"

#include <gtest/gtest.h>

namespace sv {
namespace {

TEST(BitmapTest, CutsPastesAndBlends) {
    Bitmap picture(Size(4, 3), BitmapPixel(10, 20, 30));
    picture.Paste(3, 2, Bitmap(Size(2, 2), BitmapPixel(110, 120, 130, 128)));
    EXPECT_EQ(picture.At(3, 2), BitmapPixel(60, 70, 80));
    EXPECT_EQ(picture.At(2, 2), BitmapPixel(10, 20, 30));
    Bitmap const part = picture.Cut({3, 2}, {2, 1});
    EXPECT_EQ(part.At(0, 0), picture.At(3, 2));
    EXPECT_EQ(part.At(1, 0).alpha, 0) << "beyond the picture";
    EXPECT_TRUE(Bitmap(Size(-1, 5)).IsEmpty());
    EXPECT_EQ(BitmapPixel(Color(0xFFFF, 0x8000, 0x00FF)), BitmapPixel(255, 128, 0));
}

}  // namespace
}  // namespace sv
