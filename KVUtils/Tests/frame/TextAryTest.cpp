#include "KVUtils/Source/frame/TextAry.h"

#include <gtest/gtest.h>

namespace kv::test {

namespace {

TEST(TextAryTest, PlacesAndTheirTexts) {
    sv::String a("a");
    sv::String b("b");
    TextAry texts;
    EXPECT_EQ(texts.Put(0, &a), &a) << "no such place yet: the text comes back";
    texts.ChangeSize(2);
    EXPECT_EQ(texts.Put(1, &a), nullptr);
    EXPECT_EQ(texts.Put(1, &b), &a);
    EXPECT_EQ(texts.Get(0), nullptr);
    EXPECT_EQ(texts.Get(1), &b);
    EXPECT_EQ(texts.Get(2), nullptr);
    texts.ChangeSize(3);
    EXPECT_EQ(texts.Get(1), &b);
    texts.ChangeSize(1);
    EXPECT_EQ(texts.Count(), 1U);
    texts.Clear();
    EXPECT_EQ(texts.Count(), 0U);
}

TEST(TextAryTest, EqualityIsThatOfTheTexts) {
    sv::String a("text");
    sv::String b("text");
    TextAry left;
    TextAry right;
    EXPECT_TRUE(left == right);
    left.ChangeSize(2);
    EXPECT_TRUE(left != right) << "by the number of places";
    right.ChangeSize(2);
    left.Put(0, &a);
    EXPECT_TRUE(left != right) << "a text and none";
    right.Put(0, &b);
    EXPECT_TRUE(left == right);
    b += '.';
    EXPECT_TRUE(left != right);
}

}  // namespace

}  // namespace kv::test
