#include "Apps/files/ReadError.h"

#include "Apps/files/Text.h"

#include <algorithm>

namespace files {

namespace {

constexpr std::size_t LongestExcerpt = 40;

/// Keeps a text on its line: a file may be named, and hold, anything.
std::string WithoutControls(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
    return text;
}

}  // namespace

void Fail(Place const& place, std::string_view found, std::string_view expected) {
    std::string message = WithoutControls(std::string(place.file));
    if (place.line > 0) message += ":" + std::to_string(place.line);
    message.append(": found ").append(found).append(", expected ").append(expected);
    throw ReadError(message);
}

std::string Excerpt(std::string_view text) {
    bool const isLong = text.size() > LongestExcerpt;
    if (isLong) {
        text = text.substr(0, LongestExcerpt);
        // A character cut in two would make the whole piece invalid.
        while (!text.empty() && !IsUtf8(text) && text.size() > LongestExcerpt - 3) text.remove_suffix(1);
    }
    return "\"" + WithoutControls(ToUtf8(text)) + (isLong ? "...\"" : "\"");
}

}  // namespace files
