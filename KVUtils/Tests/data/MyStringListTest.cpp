#include "KVUtils/Source/data/MyStringList.h"

#include <gtest/gtest.h>

namespace kv {
namespace {

TEST(MyStringList, OwnsCopies) {
    MyStringList list;
    sv::String text = "red";
    list.Append(text);
    text = "green";
    list.Append(text);
    list[1] += "ish";
    ASSERT_EQ(list.Count(), 2U);
    EXPECT_EQ(list[0], "red");
    EXPECT_EQ(list[1], "greenish");
    EXPECT_EQ(text, "green");
    EXPECT_EQ(list.GetObject(1), &list[1]);
}

}  // namespace
}  // namespace kv
