// sv::International: how the user's system writes numbers, dates and times, and which language it speaks. On
// POSIX the answers come from the process's locale, on Windows from the system's settings.
#pragma once

#include "SV/core/DateTime.h"
#include "SV/core/String.h"

namespace sv {

class International {
  public:
    /// The decimal separator; "." where the locale's own is longer than one byte.
    [[nodiscard]] static char GetNumDecimalSep() noexcept;
    /// The Windows identifier of the language and country (1031 German in Germany, 2055 German in
    /// Switzerland, 1033 English in the USA); 0 when it is unknown, as in the "C" locale.
    [[nodiscard]] static unsigned short GetLanguage() noexcept;
    /// The date in the locale's short form, in the suite's code page; year, month and day with hyphens when
    /// the calendar has no such day.
    [[nodiscard]] static String GetDate(Date const& date);
    /// Hours of the whole day and minutes ("14:05"), with or without seconds and, behind the decimal
    /// separator, hundredths ("14:05:09.25"; no hundredths without seconds). Colons in every locale.
    [[nodiscard]] static String GetTime(Time const& time, bool seconds = true, bool hundredths = false);
};

}  // namespace sv
