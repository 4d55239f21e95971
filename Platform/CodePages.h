// CodePages: converts between UTF-8 and a Windows code page with two bytes per character, by the system's
// tables.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Converts from the code page of this number, such as 932. Returns nullopt if the text is not valid in it,
/// or if the system does not have it.
[[nodiscard]] std::optional<std::string> Utf8OfCodePage(std::string_view text, int codePage);

/// Converts to the code page of this number; a character that it lacks becomes "?". Returns nullopt if the
/// system does not have it.
[[nodiscard]] std::optional<std::string> CodePageOfUtf8(std::string_view utf8, int codePage);

}  // namespace platform
