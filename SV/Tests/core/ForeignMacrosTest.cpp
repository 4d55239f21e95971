// The library's headers after those of the window system, whose macros have some of their names.
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#elif __has_include(<X11/Xlib.h>)
#include <X11/Xlib.h>
#endif

#include "KVUtils/KVUtils.h"
#include "SV/ui/MenuBar.h"

namespace {

TEST(ForeignMacros, LeaveTheNamesOfTheLibrary) {
    sv::Container list;
    list.Insert(&list);
    EXPECT_EQ(list.GetObject(0UL), &list);
    EXPECT_EQ(kv::ValueFilterType(kv::ValueFilterType::None), kv::ValueFilterType::None);
    EXPECT_EQ(sv::Pen(sv::Color(), 1, sv::PenStyle::None).GetStyle(), sv::PenStyle::None);
    sv::Window window(nullptr);
    window.DrawText({}, "text");
    sv::MenuBar(&window).InsertMenu("~File");
}

}  // namespace
