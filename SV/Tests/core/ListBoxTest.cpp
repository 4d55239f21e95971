#include "SV/core/ListBox.h"

#include <gtest/gtest.h>

using sv::ListBox;
using sv::ListBoxEntries;

namespace {

TEST(ListBox, KeepsOrderAndSelection) {
    ListBoxEntries entries;
    ListBox& box = entries;
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
    box.InsertEntry("English");
    box.InsertEntry("Suomi", 100);
    box.InsertEntry("Deutsch", 1);
    ASSERT_EQ(box.GetEntryCount(), 3);
    EXPECT_EQ(box.GetEntry(0), "English");
    EXPECT_EQ(box.GetEntry(1), "Deutsch");
    EXPECT_EQ(box.GetEntry(2), "Suomi");
    EXPECT_EQ(box.GetEntry(3), "");
    EXPECT_EQ(box.GetEntry(ListBox::End), "");

    box.SelectEntryPos(1);
    box.InsertEntry("behind", 2);
    EXPECT_EQ(box.GetSelectEntryPos(), 1);
    box.InsertEntry("at", 1);
    EXPECT_EQ(box.GetEntry(box.GetSelectEntryPos()), "Deutsch") << "a selection stays with its entry";
    box.SelectEntryPos(5);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);

    box.SelectEntryPos(0);
    box.Clear();
    EXPECT_EQ(box.GetEntryCount(), 0);
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End);
}

TEST(ListBox, IsFullWhereItsNumbersEnd) {
    ListBoxEntries box;
    for (int i = 0; i < 65536; ++i) box.InsertEntry("x");
    EXPECT_EQ(box.GetEntryCount(), ListBox::End);
    box.SelectEntryPos(ListBox::End - 1);
    box.InsertEntry("one more", 0);
    EXPECT_EQ(box.GetEntry(0), "x");
    EXPECT_EQ(box.GetSelectEntryPos(), ListBox::End - 1);
}

}  // namespace
