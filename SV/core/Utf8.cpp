#include "SV/core/Utf8.h"

namespace sv {

namespace {

constexpr Utf8Character Malformed{.point = 0xFFFD, .length = 1, .isWellFormed = false};

constexpr unsigned char Byte(char character) noexcept { return static_cast<unsigned char>(character); }

/// The length of a sequence that begins with this byte; 0 for a byte that cannot begin one.
constexpr std::size_t SequenceLength(unsigned char first) noexcept {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

}  // namespace

Utf8Character DecodeUtf8(std::string_view text) noexcept {
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    std::size_t const length = SequenceLength(Byte(text[0]));
    if (length == 1) return {.point = Byte(text[0]), .length = 1};
    if (length == 0 || length > text.size()) return Malformed;
    char32_t point = Byte(text[0]) & (0x7FU >> length);
    for (char const character : text.substr(1, length - 1)) {
        if ((Byte(character) & 0xC0U) != 0x80U) return Malformed;
        point = point << 6 | (Byte(character) & 0x3FU);
    }
    bool const isSurrogate = point >= 0xD800 && point < 0xE000;
    if (point < Smallest[length] || point > 0x10FFFF || isSurrogate) return Malformed;
    return {.point = point, .length = length};
}

bool IsUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        Utf8Character const character = DecodeUtf8(text);
        if (!character.isWellFormed) return false;
        text.remove_prefix(character.length);
    }
    return true;
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

}  // namespace sv
