// Encoding: text between single-byte code pages, Unicode and UTF-8. What cannot be converted becomes "?".
#pragma once

#include "SV/core/detail/CodePages.h"

#include <string>
#include <string_view>

namespace sv::detail {

[[nodiscard]] bool IsAscii(std::string_view text) noexcept;

/// One character a byte.
[[nodiscard]] std::u32string FromSingleByte(std::string_view text, CodePage const& page);
[[nodiscard]] std::string ToSingleByte(std::u32string_view text, CodePage const& page);

/// Each byte that belongs to no well-formed sequence becomes one "?".
[[nodiscard]] std::u32string FromUtf8(std::string_view text);
[[nodiscard]] std::string ToUtf8(std::u32string_view text);

}  // namespace sv::detail
