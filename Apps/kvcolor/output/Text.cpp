#include "Apps/kvcolor/output/Text.h"

#include "Apps/files/Text.h"
#include "SV/core/Utf8.h"

#include <algorithm>

namespace kvcolor {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// clang-format off
/// Combining marks and other characters without a width.
constexpr Range ZeroWidth[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
    {0x06D6, 0x06DC}, {0x0900, 0x0902}, {0x093C, 0x093C}, {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0E31, 0x0E31},
    {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1160, 0x11FF}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F},
    {0x202A, 0x202E}, {0x2060, 0x2064}, {0x20D0, 0x20F0}, {0x302A, 0x302D}, {0x3099, 0x309A}, {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};
/// East Asian wide characters and pictographs.
constexpr Range DoubleWidth[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B}, {0x2329, 0x232A}, {0x23E9, 0x23EC}, {0x2E80, 0x303E}, {0x3041, 0xA4CF},
    {0xA960, 0xA97C}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE10, 0xFE19}, {0xFE30, 0xFE6F}, {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F7E0, 0x1F7EB}, {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD},
};
// clang-format on

template <std::size_t Count>
bool IsIn(Range const (&ranges)[Count], char32_t point) noexcept {
    return std::ranges::any_of(ranges,
                               [point](Range const& r) { return point >= r.first && point <= r.last; });
}

std::size_t WidthOf(char32_t point) noexcept {
    if (point < 0x0300) return 1;
    if (IsIn(ZeroWidth, point)) return 0;
    return IsIn(DoubleWidth, point) ? 2 : 1;
}

/// Returns whether the code point is in C0, DEL or C1.
bool IsControl(char32_t point) noexcept { return point < 0x20 || (point >= 0x7F && point < 0xA0); }

}  // namespace

std::size_t Width(std::string_view text) noexcept {
    std::size_t width = 0;
    while (!text.empty()) {
        sv::Utf8Character const character = sv::DecodeUtf8(text);
        width += WidthOf(character.point);
        text.remove_prefix(character.length);
    }
    return width;
}

std::string Cut(std::string_view text, std::size_t width) {
    if (Width(text) <= width) return std::string(text);
    std::size_t end = 0;
    for (std::size_t used = 1; end < text.size();) {  // 1 for the ellipsis
        sv::Utf8Character const character = sv::DecodeUtf8(text.substr(end));
        used += WidthOf(character.point);
        if (used > width) break;
        end += character.length;
    }
    return std::string(text.substr(0, end)) + "\u2026";
}

std::string Printable(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        sv::Utf8Character const character = sv::DecodeUtf8(text);
        bool const isShown = character.isWellFormed && !IsControl(character.point);
        printable += isShown ? text.substr(0, character.length) : std::string_view("\uFFFD");
        text.remove_prefix(character.length);
    }
    return printable;
}

std::string Wrap(std::string_view text, std::size_t width) {
    std::string lines;
    std::size_t column = 0;
    for (std::string_view const word : files::Split(text, ' ')) {
        std::size_t const needed = Width(word);
        if (column > 0 && column + 1 + needed > width) {
            lines += '\n';
            column = 0;
        } else if (column > 0) {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += needed;
    }
    return lines;
}

}  // namespace kvcolor
