#include "Apps/kvcolor/output/Text.h"

#include <algorithm>

namespace kvcolor {

namespace {

bool IsContinuation(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// The bytes of the well-formed code point that the text begins with; 0 when there is none.
std::size_t CodePointBytes(std::string_view text) noexcept {
    auto const lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    std::size_t const bytes = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < bytes || !std::ranges::all_of(text.substr(1, bytes - 1), IsContinuation)) return 0;
    // Overlong forms, surrogates and what lies beyond U+10FFFF show in the second byte.
    auto const second = static_cast<unsigned char>(text[1]);
    bool const isMalformed = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                             (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return isMalformed ? 0 : bytes;
}

/// C0, DEL and C1, the latter written as C2 80 to C2 9F.
bool IsControl(std::string_view codePoint) noexcept {
    auto const first = static_cast<unsigned char>(codePoint[0]);
    if (codePoint.size() == 1) return first < 0x20 || first == 0x7F;
    return codePoint.size() == 2 && first == 0xC2 && static_cast<unsigned char>(codePoint[1]) < 0xA0;
}

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
        std::size_t const bytes = CodePointBytes(text);
        bool const isShown = bytes > 0 && !IsControl(text.substr(0, bytes));
        printable += isShown ? text.substr(0, bytes) : std::string_view("\uFFFD");
        text.remove_prefix(std::max<std::size_t>(bytes, 1));
    }
    return printable;
}

std::string Wrap(std::string_view text, std::size_t width) {
    std::string lines;
    std::size_t column = 0;
    for (std::string_view const word : Split(text, ' ')) {
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

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        std::size_t const end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string List(std::span<std::string const> items, std::size_t most) {
    std::string list;
    for (std::string const& item : items.first(std::min(most, items.size()))) {
        if (!list.empty()) list += ", ";
        list += item;
    }
    if (items.size() > most) list += " and " + std::to_string(items.size() - most) + " more";
    return list;
}

}  // namespace kvcolor
