// Locale: what the system knows of its user's language and ways of writing.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The Windows language identifier, 0 when unknown.
[[nodiscard]] unsigned short LanguageIdentifier() noexcept;
/// The decimal separator, one byte; "." where the system's own is longer.
[[nodiscard]] char DecimalSeparator() noexcept;
/// The date in the user's short form, in UTF-8; "year-month-day" for a day that the calendar has not.
[[nodiscard]] std::string ShortDate(int year, int month, int day);

/// Between UTF-8 and the encoding of the system's plain texts: the same on POSIX, the ANSI code page on
/// Windows. A character that the target lacks becomes "?".
[[nodiscard]] std::string ToSystemText(std::string_view utf8);
[[nodiscard]] std::string FromSystemText(std::string_view text);

}  // namespace platform
