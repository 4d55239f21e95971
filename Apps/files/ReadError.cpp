#include "Apps/files/ReadError.h"

#include "Apps/files/Text.h"
#include "SV/core/Utf8.h"

#include <algorithm>

namespace files {

namespace {

constexpr std::size_t LongestExcerpt = 40;

/// Keeps a message on one line: names and contents of files are arbitrary.
std::string WithoutControls(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
    return text;
}

}  // namespace

void Fail(Location const& location, std::string_view problem) {
    std::string message = WithoutControls(std::string(location.file));
    if (location.line > 0) message += ":" + std::to_string(location.line);
    throw ReadError(message.append(": ").append(problem));
}

void Fail(Location const& location, std::string_view found, std::string_view expected) {
    Fail(location, std::string("found ").append(found).append(", expected ").append(expected));
}

std::string Excerpt(std::string_view text) {
    bool const isLong = text.size() > LongestExcerpt;
    if (isLong) {
        text = text.substr(0, LongestExcerpt);
        // Removes a character that was cut in two: it would make the excerpt invalid.
        while (!text.empty() && !sv::IsUtf8(text) && text.size() > LongestExcerpt - 3) text.remove_suffix(1);
    }
    return "\"" + WithoutControls(ToUtf8(text)) + (isLong ? "...\"" : "\"");
}

}  // namespace files
