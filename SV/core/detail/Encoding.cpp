#include "SV/core/detail/Encoding.h"

#include "SV/core/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace sv::detail {

namespace {

constexpr char Lost = '?';
constexpr char32_t FirstUpper = 0x80;

constexpr unsigned char Byte(char character) noexcept { return static_cast<unsigned char>(character); }

char32_t FromByte(char character, CodePage const& page) noexcept {
    if (Byte(character) < FirstUpper) return Byte(character);
    char16_t const point = page[Byte(character) - FirstUpper];
    return point == 0 ? U'?' : point;
}

char ToByte(char32_t point, CodePage const& page) noexcept {
    if (point < FirstUpper) return static_cast<char>(point);
    auto const* const found = std::ranges::find(page, point);
    return found == page.end() ? Lost : static_cast<char>(FirstUpper + (found - page.begin()));
}

}  // namespace

bool IsAscii(std::string_view text) noexcept {
    return std::ranges::all_of(text, [](char character) { return Byte(character) < FirstUpper; });
}

std::u32string FromSingleByte(std::string_view text, CodePage const& page) {
    std::u32string points;
    points.reserve(text.size());
    std::ranges::transform(text, std::back_inserter(points),
                           [&](char character) { return FromByte(character, page); });
    return points;
}

std::string ToSingleByte(std::u32string_view text, CodePage const& page) {
    std::string bytes;
    bytes.reserve(text.size());
    std::ranges::transform(text, std::back_inserter(bytes),
                           [&](char32_t point) { return ToByte(point, page); });
    return bytes;
}

std::u32string FromUtf8(std::string_view text) {
    std::u32string points;
    points.reserve(text.size());
    while (!text.empty()) {
        Utf8Character const character = DecodeUtf8(text);
        points += character.isWellFormed ? character.point : char32_t{U'?'};
        text.remove_prefix(character.length);
    }
    return points;
}

std::string ToUtf8(std::u32string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (char32_t const point : text) AppendUtf8(bytes, point);
    return bytes;
}

}  // namespace sv::detail
