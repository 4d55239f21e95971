// Date and Time: a calendar day and a time of day, each stored as one decimal number.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// Year * 10000 + month * 100 + day. Not checked against a calendar.
class Date {
  public:
    /// Today, in the local time zone.
    Date();
    constexpr explicit Date(unsigned long date) noexcept : date_(date) {}
    constexpr Date(unsigned short day, unsigned short month, unsigned short year) noexcept
        : date_((year % 10000UL) * 10000 + (month % 100UL) * 100 + day % 100UL) {}

    [[nodiscard]] constexpr unsigned long GetDate() const noexcept { return date_; }
    [[nodiscard]] constexpr unsigned short GetDay() const noexcept {
        return static_cast<unsigned short>(date_ % 100);
    }
    [[nodiscard]] constexpr unsigned short GetMonth() const noexcept {
        return static_cast<unsigned short>(date_ / 100 % 100);
    }
    [[nodiscard]] constexpr unsigned short GetYear() const noexcept {
        return static_cast<unsigned short>(date_ / 10000);
    }

    friend constexpr bool operator==(Date const&, Date const&) noexcept = default;

  private:
    unsigned long date_;
};

/// Hours * 1000000 + minutes * 10000 + seconds * 100 + hundredths.
class Time {
  public:
    /// Now, in the local time zone.
    Time();
    constexpr explicit Time(unsigned long time) noexcept : time_(time) {}
    constexpr Time(unsigned short hour, unsigned short minute, unsigned short second = 0,
                   unsigned short hundredth = 0) noexcept
        : time_((hour % 100UL) * 1000000 + (minute % 100UL) * 10000 + (second % 100UL) * 100 +
                hundredth % 100UL) {}

    [[nodiscard]] constexpr unsigned long GetTime() const noexcept { return time_; }
    [[nodiscard]] constexpr unsigned short GetHour() const noexcept {
        return static_cast<unsigned short>(time_ / 1000000);
    }
    [[nodiscard]] constexpr unsigned short GetMin() const noexcept {
        return static_cast<unsigned short>(time_ / 10000 % 100);
    }
    [[nodiscard]] constexpr unsigned short GetSec() const noexcept {
        return static_cast<unsigned short>(time_ / 100 % 100);
    }
    [[nodiscard]] constexpr unsigned short Get100Sec() const noexcept {
        return static_cast<unsigned short>(time_ % 100);
    }

    friend constexpr bool operator==(Time const&, Time const&) noexcept = default;

  private:
    unsigned long time_;
};

}  // namespace sv
