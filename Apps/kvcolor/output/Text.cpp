#include "Apps/kvcolor/output/Text.h"

#include "Apps/files/Text.h"
#include "SV/core/Utf8.h"

#include <algorithm>

namespace kvcolor {

namespace {

bool IsContinuation(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Returns whether the code point is in C0, DEL or C1.
bool IsControl(char32_t point) noexcept { return point < 0x20 || (point >= 0x7F && point < 0xA0); }

}  // namespace

std::size_t Width(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

std::string Cut(std::string_view text, std::size_t width) {
    if (Width(text) <= width) return std::string(text);
    std::size_t end = 0;
    for (std::size_t points = 0; end < text.size(); ++end) {
        if (!IsContinuation(text[end]) && ++points == width) break;
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
