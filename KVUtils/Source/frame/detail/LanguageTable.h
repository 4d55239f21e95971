// The languages that the suite knows, with the codes by which the outside world names them.
// Written by Tools/tables.py from the printed table; not edited by hand.
#pragma once

#include <array>
#include <string_view>

namespace kv::detail {

// clang-format off
/// A slot of the language table; its place in the array is the absolute index.
struct LanguageSlot {
    std::string_view name;  // in the suite's code page
    unsigned short countryCode;
};

inline constexpr std::array<LanguageSlot, 25> LanguageTable = {{
    {"English", 1},
    {"Deutsch", 49},
    {"Espa\xF1" "ol", 34},
    {"Fran\xE7" "ais", 33},
    {"Italiano", 39},
    {"Nederlands", 31},
    {"Svenska", 46},
    {"Suomi", 35},
    {"Norwegian", 997},
    {"Danish", 45},
    {"Portuguese", 55},
    {"Czech", 42},
    {"Hungarian", 36},
    {"Polish", 48},
    {"Arabien", 96},
    {"Russian", 7},
    {"Vietnamese", 84},
    {"Turkish", 90},
    {"", 992},
    {"", 993},
    {"", 994},
    {"", 995},
    {"", 996},
    {"Chinese", 86},
    {"Japanese", 81},
}};

/// The absolute index of a language that the system names by its Windows identifier.
struct SystemLanguage {
    unsigned short identifier;
    unsigned short absolute;
};

inline constexpr std::array<SystemLanguage, 35> SystemLanguages = {{
    {4, 23},
    {9, 0},
    {20, 8},
    {1025, 14},
    {1028, 23},
    {1029, 11},
    {1030, 9},
    {1031, 1},
    {1033, 0},
    {1034, 2},
    {1035, 7},
    {1036, 3},
    {1038, 12},
    {1040, 4},
    {1041, 24},
    {1043, 5},
    {1044, 8},
    {1045, 13},
    {1046, 10},
    {1049, 15},
    {1053, 6},
    {1055, 17},
    {2052, 23},
    {2055, 1},
    {2057, 0},
    {2058, 2},
    {2060, 3},
    {2064, 4},
    {2067, 5},
    {2068, 8},
    {2070, 10},
    {3082, 2},
    {3084, 3},
    {4103, 1},
    {4108, 3},
}};

/// The absolute index of a language that win.ini names.
struct WinIniLanguage {
    std::string_view name;
    unsigned short absolute;
};

inline constexpr std::array<WinIniLanguage, 15> WinIniLanguages = {{
    {"deu", 1},
    {"fin", 7},
    {"enu", 0},
    {"frc", 3},
    {"eng", 0},
    {"nld", 5},
    {"fra", 3},
    {"nor", 8},
    {"ita", 4},
    {"ptg", 10},
    {"esp", 2},
    {"sve", 6},
    {"esn", 2},
    {"", 17},
    {"dan", 9},
}};

/// The absolute index of a language that the system names otherwise.
inline constexpr unsigned short OtherSystemLanguage = 0;
// clang-format on

}  // namespace kv::detail
