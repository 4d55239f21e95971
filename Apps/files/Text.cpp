#include "Apps/files/Text.h"

#include "Apps/files/ReadError.h"
#include "Apps/files/SuiteText.h"
#include "SV/core/Utf8.h"

#include <algorithm>

namespace files {

namespace {

using std::string_view_literals::operator""sv;

constexpr char EndOfFileMark = '\x1A';

/// Returns whether a line of text may contain the character: no control character but tabs and form feeds.
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
        Location const location{file, lines.Number()};
        if (line.size() > MaxLineBytes) {
            Fail(location, "a line of more than " + std::to_string(MaxLineBytes) + " bytes",
                 "at most that (" + std::to_string(MaxLineBytes >> 20U) + " MiB) in a line");
        }
        auto const control = std::ranges::find_if_not(line, IsTextCharacter);
        if (control != line.end()) {
            Fail(location,
                 "binary data (byte " + std::to_string(static_cast<unsigned char>(*control)) + " at column " +
                     std::to_string(control - line.begin() + 1) + ")",
                 "text");
        }
        isBlank = isBlank && Trimmed(line).empty();
    }
    if (isBlank) Fail({file}, "an empty file", "a CGATS file or a CSV file with wavelengths in its header");
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
    // One byte beyond the limit shows that a line is too long.
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

std::string ToUtf8(std::string_view text) { return sv::IsUtf8(text) ? std::string(text) : FromSuite(text); }

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

std::string List(std::span<std::string const> items, std::size_t limit) {
    std::string list;
    for (std::string const& item : items.first(std::min(limit, items.size()))) {
        if (!list.empty()) list += ", ";
        list += item;
    }
    if (items.size() > limit) list += " and " + std::to_string(items.size() - limit) + " more";
    return list;
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string Counted(std::size_t count, std::string_view noun) {
    return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

}  // namespace files
