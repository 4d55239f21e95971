#include "SV/core/ListBox.h"

#include <gtest/gtest.h>

namespace sv {
namespace {

TEST(ListBox, KeepsOrderAndSelection) {
    ListBoxEntries box;
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
    box.InsertEntry("English");
    box.InsertEntry("Suomi", 100);
    box.InsertEntry("Deutsch", 1);
    ASSERT_EQ(box.GetEntryCount(), 3);
    char const* const expected[] = {"English", "Deutsch", "Suomi", ""};
    for (unsigned short i = 0; i < 4; ++i) EXPECT_EQ(box.GetEntry(i), expected[i]);

    box.SelectEntryPos(1);
    box.InsertEntry("after", 2);
    EXPECT_EQ(box.GetSelectEntryPos(), 1);
    box.InsertEntry("at", 1);
    EXPECT_EQ(box.GetEntry(box.GetSelectEntryPos()), "Deutsch") << "a selection stays with its entry";
    box.SelectEntryPos(5);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
    box.SelectEntryPos(0);
    box.Clear();
    EXPECT_EQ(box.GetEntryCount(), 0);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);

    for (int i = 0; i < 70000; ++i) box.InsertEntry("x");
    box.InsertEntry("last");
    EXPECT_EQ(box.GetEntryCount(), 70001) << "more lines than 16 bits count";
    EXPECT_EQ(box.GetEntry(70000), "last");
    box.SelectEntryPos(70000);
    box.InsertEntry("first", 0);
    EXPECT_EQ(box.GetSelectEntryPos(), 70001);
}

}  // namespace
}  // namespace sv
