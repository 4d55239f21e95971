#include "SV/core/detail/Encoding.h"

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

/// A character and the number of bytes that it took.
struct Decoded {
    char32_t point;
    std::size_t length;
};

constexpr Decoded Malformed{U'?', 1};

/// Bytes that a sequence with this first byte has; 0 for a byte that cannot be the first.
constexpr std::size_t SequenceLength(unsigned char first) noexcept {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

/// The first character of a text that is not empty. Overlong forms, halves of surrogate pairs and points past
/// the last one of Unicode are malformed.
Decoded DecodeUtf8(std::string_view text) noexcept {
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    std::size_t const length = SequenceLength(Byte(text[0]));
    if (length == 1) return {Byte(text[0]), 1};
    if (length == 0 || length > text.size()) return Malformed;
    char32_t point = Byte(text[0]) & (0x7FU >> length);
    for (char const character : text.substr(1, length - 1)) {
        if ((Byte(character) & 0xC0U) != 0x80U) return Malformed;
        point = point << 6 | (Byte(character) & 0x3FU);
    }
    bool const isSurrogate = point >= 0xD800 && point < 0xE000;
    if (point < Smallest[length] || point > 0x10FFFF || isSurrogate) return Malformed;
    return {point, length};
}

void AppendUtf8(std::string& text, char32_t point) {
    auto const tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | (static_cast<unsigned>(point) >> shift & 0x3FU));
    };
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0U | point >> 6);
        tail(0);
    } else if (point < 0x10000) {
        text += static_cast<char>(0xE0U | point >> 12);
        tail(6), tail(0);
    } else {
        text += static_cast<char>(0xF0U | point >> 18);
        tail(12), tail(6), tail(0);
    }
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
        Decoded const character = DecodeUtf8(text);
        points += character.point;
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
