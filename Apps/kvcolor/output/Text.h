// Text: UTF-8 on a terminal: width, cutting, wrapping, and removing what could control the terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvcolor {

/// Returns the number of terminal columns: 2 for wide characters, 0 for combining ones.
[[nodiscard]] std::size_t Width(std::string_view text) noexcept;

/// Returns the text, or its beginning and an ellipsis, in at most `width` columns. `width` is at least 1.
[[nodiscard]] std::string Cut(std::string_view text, std::size_t width);

/// Returns valid UTF-8 without control characters: each of these and each malformed byte becomes U+FFFD, so
/// that no name in a file can control a terminal.
[[nodiscard]] std::string Printable(std::string_view text);

/// Breaks at blanks into lines of at most `width` columns; a longer word has a line of its own.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

}  // namespace kvcolor
