// sv::International: number, date and time formats and the language of the user's system. On POSIX they come
// from the locale of the process, on Windows from the system settings.
#pragma once

#include "SV/core/DateTime.h"
#include "SV/core/String.h"

#include <string_view>

namespace sv {

/// Makes `International` write numbers and dates in the forms of a language instead of the system's, while it
/// lives and on this thread alone. Objects nest.
class InternationalForms {
  public:
    /// "de": "2,5" and "24.12.2026". Empty: the system's. Any other: "2.5" and "2026-12-24".
    explicit InternationalForms(std::string_view language) noexcept;
    InternationalForms(InternationalForms const&) = delete;
    InternationalForms& operator=(InternationalForms const&) = delete;
    ~InternationalForms();

  private:
    int before_;
};

class International {
  public:
    /// The decimal separator; "." if that of the locale is longer than one byte.
    [[nodiscard]] static char GetNumDecimalSep() noexcept;
    /// The Windows identifier of language and country (1031 German in Germany, 2055 German in Switzerland,
    /// 1033 English in the USA); 0 if unknown, as in the "C" locale.
    [[nodiscard]] static unsigned short GetLanguage() noexcept;
    /// Formats the date in the short form of the locale, in the suite's code page; as year, month and day
    /// with hyphens if the calendar has no such day.
    [[nodiscard]] static String GetDate(Date const& date);
    /// Formats the time with 24 hours ("14:05"), optionally with seconds and, after the decimal separator,
    /// hundredths ("14:05:09.25"; no hundredths without seconds). The separator is a colon in every locale.
    [[nodiscard]] static String GetTime(Time const& time, bool seconds = true, bool hundredths = false);
};

}  // namespace sv
