#include "Apps/files/Text.h"

#include "Apps/files/ReadError.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace files {

namespace {

using std::string_view_literals::operator""sv;

/// What the upper half of Windows-1252 has in place of the control characters 0x80 to 0x9F of Latin-1; 0
/// where nothing is assigned.
constexpr std::array<std::uint16_t, 32> Windows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr std::uint16_t ReplacementCharacter = 0xFFFD;

std::uint16_t FromWindows1252(unsigned char byte) noexcept {
    if (byte < 0x80 || byte >= 0xA0) return byte;
    std::uint16_t const character = Windows1252[byte - 0x80U];
    return character == 0 ? ReplacementCharacter : character;
}

void AppendUtf8(std::string& text, std::uint16_t character) {
    if (character < 0x80U) {
        text += static_cast<char>(character);
        return;
    }
    if (character < 0x800U) {
        text += static_cast<char>(0xC0U | (character >> 6U));
    } else {
        text += static_cast<char>(0xE0U | (character >> 12U));
        text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    }
    text += static_cast<char>(0x80U | (character & 0x3FU));
}

/// The number of bytes of the UTF-8 character at the front, or 0 where there is none.
std::size_t Utf8Length(std::string_view text) noexcept {
    auto const byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    auto const lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t const length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(k) & 0xC0U) != 0x80U) return 0;
    }
    bool const isOverlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    bool const isSurrogate = lead == 0xED && byte(1) > 0x9F;
    bool const isTooLarge = lead == 0xF4 && byte(1) > 0x8F;
    return isOverlong || isSurrogate || isTooLarge ? 0 : length;
}

constexpr char EndOfFileMark = '\x1A';

/// Control characters that text has: tab, vertical tab, form feed; line ends never stand inside a line.
bool IsTextCharacter(char c) noexcept {
    auto const byte = static_cast<unsigned char>(c);
    return byte >= ' ' || c == '\t' || c == '\v' || c == '\f';
}

void RefuseKnownContainers(std::string_view bytes, std::string_view file) {
    if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv)) {
        Fail({file}, "text in UTF-16", "text in UTF-8 or a one-byte encoding (save the file as UTF-8)");
    }
    if (bytes.starts_with("PK\x03\x04"sv)) {
        Fail({file}, "a ZIP archive, as spreadsheet programs save", "a text file (save the sheet as CSV)");
    }
}

void CheckLines(std::string_view text, std::string_view file) {
    bool isBlank = true;
    for (LineReader lines(text); lines.Next();) {
        std::string_view const line = lines.Text();
        Place const place{file, lines.Number()};
        if (line.size() > MaxLineBytes) {
            Fail(place, "a line of more than " + std::to_string(MaxLineBytes) + " bytes",
                 "at most that (" + std::to_string(MaxLineBytes >> 20U) + " MiB) in a line");
        }
        auto const control = std::ranges::find_if_not(line, IsTextCharacter);
        if (control != line.end()) {
            Fail(place,
                 "binary data (byte " + std::to_string(static_cast<unsigned char>(*control)) + " at column " +
                     std::to_string(control - line.begin() + 1) + ")",
                 "text");
        }
        isBlank = isBlank && Trimmed(line).empty();
    }
    if (isBlank) Fail({file}, "an empty file", "a CGATS file or a CSV file with wavelengths in its head");
}

}  // namespace

void CheckSize(std::uintmax_t bytes, std::string_view file) {
    if (bytes <= MaxFileBytes) return;
    Fail({file}, "more than " + std::to_string(MaxFileBytes) + " bytes",
         "at most that (" + std::to_string(MaxFileBytes >> 20U) + " MiB) in a file");
}

std::string_view CheckedText(std::string_view bytes, std::string_view file) {
    CheckSize(bytes.size(), file);
    RefuseKnownContainers(bytes, file);
    if (bytes.starts_with("\xEF\xBB\xBF"sv)) bytes.remove_prefix(3);
    if (bytes.ends_with(EndOfFileMark)) bytes.remove_suffix(1);
    CheckLines(bytes, file);
    return bytes;
}

bool LineReader::Next() noexcept {
    if (rest_.empty()) return false;
    // One byte beyond the limit shows that a line is too long; the rest of an endless one need not be looked
    // at.
    auto const end = rest_.substr(0, MaxLineBytes + 1).find_first_of("\r\n");
    line_ = rest_.substr(0, end == std::string_view::npos ? MaxLineBytes + 1 : end);
    ++number_;
    rest_.remove_prefix(line_.size());
    if (rest_.starts_with("\r\n")) {
        rest_.remove_prefix(2);
    } else if (!rest_.empty() && end != std::string_view::npos) {
        rest_.remove_prefix(1);
    }
    return true;
}

std::string_view Trimmed(std::string_view text) noexcept {
    constexpr std::string_view Blanks = " \t\v\f";
    auto const first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string Key(std::string_view text) {
    std::string key;
    for (char const c : text) {
        bool const isLower = c >= 'a' && c <= 'z';
        bool const isKept = isLower || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isKept) key += isLower ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return key;
}

bool IsUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        std::size_t const length = Utf8Length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string ToUtf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string utf8;
    for (char const c : text) AppendUtf8(utf8, FromWindows1252(static_cast<unsigned char>(c)));
    return utf8;
}

}  // namespace files
