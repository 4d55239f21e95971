// UTF-8, one character at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sv {

/// A character of a text in UTF-8.
struct Utf8Character {
    char32_t point = 0;        ///< the code point; U+FFFD for a malformed byte
    std::size_t length = 1;    ///< the bytes that it takes; 1 for a malformed byte
    bool isWellFormed = true;  ///< false for a byte that belongs to no well-formed sequence
};

/// Decodes the first character of `text`, which must not be empty. Overlong forms, surrogates and code points
/// above U+10FFFF are malformed, as is a sequence that is cut off.
[[nodiscard]] Utf8Character DecodeUtf8(std::string_view text) noexcept;

/// Whether the text is well-formed UTF-8.
[[nodiscard]] bool IsUtf8(std::string_view text) noexcept;

/// Appends one code point, which must be a Unicode scalar value.
void AppendUtf8(std::string& text, char32_t point);

}  // namespace sv
