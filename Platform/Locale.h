// Locale: the user's language and formats, as configured in the system.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Returns the Windows language identifier, 0 if unknown.
[[nodiscard]] unsigned short LanguageIdentifier() noexcept;
/// Returns the decimal separator, one byte; "." if the system's is longer.
[[nodiscard]] char DecimalSeparator() noexcept;
/// Returns the date in the user's short format, in UTF-8; "year-month-day" for a day that does not exist.
[[nodiscard]] std::string ShortDate(int year, int month, int day);

/// Converts between UTF-8 and the encoding of the system's plain text: UTF-8 on POSIX, the ANSI code page on
/// Windows. A character that the target lacks becomes "?".
[[nodiscard]] std::string ToSystemText(std::string_view utf8);
[[nodiscard]] std::string FromSystemText(std::string_view text);

}  // namespace platform
