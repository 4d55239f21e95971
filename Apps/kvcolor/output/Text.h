// Text: UTF-8 for people: width, cutting, lists, and texts of files made harmless for a terminal.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

/// How many code points the text has.
[[nodiscard]] std::size_t Width(std::string_view text) noexcept;

/// The text itself, or its beginning and an ellipsis, `width` code points in all. `width` is at least 1.
[[nodiscard]] std::string Cut(std::string_view text, std::size_t width);

/// Valid UTF-8 without control characters: each such character and each malformed byte becomes U+FFFD, so
/// that no name in a file can steer a terminal.
[[nodiscard]] std::string Printable(std::string_view text);

/// Lines of at most `width` code points, broken at blanks; a longer word stands in a line of its own.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

/// ASCII letters in lower case.
[[nodiscard]] std::string Lower(std::string_view text);

/// The pieces between separators; one piece, perhaps empty, where there is no separator.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);

/// "a, b, c", with "and 12 more" behind the first `most`.
[[nodiscard]] std::string List(std::span<std::string const> items, std::size_t most);

}  // namespace kvcolor
