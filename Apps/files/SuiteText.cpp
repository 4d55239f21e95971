#include "Apps/files/SuiteText.h"

#include <algorithm>
#include <array>

namespace files {

namespace {

/// Combining marks of Windows-1252's letters begin with this byte in UTF-8.
constexpr char FirstByteOfMark = '\xCC';

/// Letters that a mark is combined with, and the results in Windows-1252 in the same order.
struct Mark {
    char secondByte;
    std::string_view letters;
    std::string_view results;
};

// clang-format off
constexpr std::array<Mark, 8> Marks = {{
    {'\x80', "AEIOUaeiou",   "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9"},          // grave
    {'\x81', "AEIOUYaeiouy", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD"},  // acute
    {'\x82', "AEIOUaeiou",   "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB"},          // circumflex
    {'\x83', "ANOano",       "\xC3\xD1\xD5\xE3\xF1\xF5"},                          // tilde
    {'\x88', "AEIOUYaeiouy", "\xC4\xCB\xCF\xD6\xDC\x9F\xE4\xEB\xEF\xF6\xFC\xFF"},  // diaeresis
    {'\x8A', "Aa",           "\xC5\xE5"},                                          // ring
    {'\x8C', "SZsz",         "\x8A\x8E\x9A\x9E"},                                  // caron
    {'\xA7', "Cc",           "\xC7\xE7"},                                          // cedilla
}};
// clang-format on

/// Empty if Windows-1252 has no such character.
std::string Combined(char letter, char secondByteOfMark) {
    auto const mark = std::ranges::find(Marks, secondByteOfMark, &Mark::secondByte);
    std::size_t const at = mark == Marks.end() ? std::string_view::npos : mark->letters.find(letter);
    return at == std::string_view::npos ? "" : FromSuite(mark->results.substr(at, 1));
}

}  // namespace

std::string Composed(std::string_view utf8) {
    std::string composed;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        bool const hasMark = i + 2 < utf8.size() && utf8[i + 1] == FirstByteOfMark;
        std::string const letter = hasMark ? Combined(utf8[i], utf8[i + 2]) : "";
        if (letter.empty()) {
            composed += utf8[i];
        } else {
            composed += letter;
            i += 2;
        }
    }
    return composed;
}

std::string ToSuite(std::string_view utf8) {
    return std::string(sv::String::FromUtf8(Composed(utf8)).View());
}

bool FitsSuite(std::string_view utf8) { return FromSuite(ToSuite(utf8)) == Composed(utf8); }

}  // namespace files
