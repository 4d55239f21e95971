#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Tests/TestSupport.h"

#include <algorithm>

namespace kv::test {
namespace {

using namespace detail;

TEST(StandardButtons, AreSingleBitsWithABitmap) {
    long seen = 0;
    for (StandardButton const& button : StandardButtonTable) {
        EXPECT_EQ(button.id & (button.id - 1), 0) << button.id;
        EXPECT_EQ(seen & button.id, 0) << button.id;
        seen |= button.id;
        EXPECT_EQ(BitmapFile(button.bitmapRecord), button.bitmapFile);
        StandardButton const* const found = FindStandardButton(button.id);
        ASSERT_NE(found, nullptr) << button.id;
        EXPECT_EQ(found->bitmapRecord, button.bitmapRecord);
    }
    EXPECT_EQ(seen, 0x1FFFFFF);
    for (long const id : {0L, 3L, 0x2000000L, -1L}) EXPECT_EQ(FindStandardButton(id), nullptr) << id;
    EXPECT_TRUE(std::ranges::is_sorted(BitmapTable, {}, &BitmapRecord::record));
    EXPECT_EQ(BitmapFile(2254), "");
    EXPECT_EQ(BitmapFile(734), "waitvis.bmp");
}

}  // namespace
}  // namespace kv::test
