#include "KVUtils/Source/controls/detail/ButtonTables.h"
#include "KVUtils/Source/resources/Resources.h"
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {
namespace {

/// The part of the picture that is there, weighed by its transparency.
double Coverage(sv::Bitmap const& picture) {
    double sum = 0;
    sv::Size const size = picture.GetSizePixel();
    for (int y = 0; y < size.Height(); ++y) {
        for (int x = 0; x < size.Width(); ++x) sum += picture.At(x, y).alpha;
    }
    return sum / (255.0 * size.Width() * size.Height());
}

TEST(Resources, EachRecordHasAPictureInTwoSizes) {
    for (detail::BitmapRecord const& row : detail::BitmapTable) {
        sv::Bitmap const picture = KVResId(row.record).LoadBitmap();
        ASSERT_NE(picture.GetFine(), nullptr) << row.file;
        sv::Size const size = picture.GetSizePixel();
        sv::Size const fine = picture.GetFine()->GetSizePixel();
        EXPECT_TRUE(size.Width() >= 20 && fine == sv::Size(static_cast<std::int16_t>(2 * size.Width()),
                                                           static_cast<std::int16_t>(2 * size.Height())))
            << row.file;
        // A run that is read wrongly shifts all that is behind it, and leaves the end of the picture black.
        EXPECT_EQ(picture.At(size.Width() - 1, size.Height() - 1).alpha, 0) << row.file;
        EXPECT_EQ(picture.GetFine()->At(fine.Width() - 1, fine.Height() - 1).alpha, 0) << row.file;
        EXPECT_GT(Coverage(picture), 0.07) << row.file;
        EXPECT_NEAR(Coverage(picture), Coverage(*picture.GetFine()), 0.01) << row.file;
    }
    EXPECT_TRUE(LoadKVBitmap(2254).IsEmpty());
}

}  // namespace
}  // namespace kv::test
