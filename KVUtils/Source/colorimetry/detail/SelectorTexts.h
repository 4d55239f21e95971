// The stored vocabulary of the measuring conditions.
// Written by Tools/tables.py from the printed table; not edited by hand.
#pragma once

#include <array>
#include <string_view>

namespace kv::detail {

// clang-format off
/// A selector's value and its texts: the one that is read and the one that is written, which differ in places.
/// An empty text is none: such a value is not read, or is written by rule.
struct SelectorText {
    int value;
    std::string_view read;
    std::string_view written;
};

inline constexpr std::array<SelectorText, 29> IllumTexts = {{
    {0, "A", "A"},
    {1, "C", "C"},
    {2, "D65", "D65"},
    {3, "D50", "D50"},
    {8, "Il1", "Il1"},
    {9, "Il2", "Il2"},
    {10, "Il3", "Il3"},
    {11, "Il4", "Il4"},
    {16, "Dxx1", ""},
    {17, "Dxx2", ""},
    {18, "Dxx3", ""},
    {19, "Dxx4", ""},
    {20, "Dxx5", ""},
    {21, "Dxx6", ""},
    {22, "Dxx7", ""},
    {23, "Dxx8", ""},
    {24, "F1", "F1"},
    {25, "F2", "F2"},
    {26, "F3", "F3"},
    {27, "F4", "F4"},
    {28, "F5", "F5"},
    {29, "F6", "F6"},
    {30, "F7", "F7"},
    {31, "F8", "F8"},
    {32, "F9", "F9"},
    {33, "F10", "F10"},
    {34, "F11", "F11"},
    {35, "", "F12"},
    {100, "Custom", "Custom"},
}};

inline constexpr std::array<SelectorText, 10> FilterTexts = {{
    {0, "", "???"},
    {1, "No", "No"},
    {2, "Pol", "Pol"},
    {3, "D65", "D65"},
    {4, "Repro", "Repro"},
    {5, "UV", "UV"},
    {6, "Cust", "Cust"},
    {7, "D8i", "D8i"},
    {8, "D8e", "D8e"},
    {9, "D8t", "D8t"},
}};

inline constexpr std::array<SelectorText, 7> DStdTexts = {{
    {0, "ANSIA", "ANSI A"},
    {1, "ANSIT", "ANSI T"},
    {2, "DIN", "DIN"},
    {3, "DINNB", "DIN NB"},
    {4, "SPI", "SPI"},
    {6, "ANSIM", "ANSI M"},
    {8, "DS1", "DS1"},
}};

inline constexpr std::array<SelectorText, 2> WBaseTexts = {{
    {0, "Pap", "Pap"},
    {1, "", "Abs"},
}};
// clang-format on

}  // namespace kv::detail
