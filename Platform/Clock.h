// Clock: the user's local time of day.
#pragma once

namespace platform {

/// A local calendar date and time of day.
struct LocalClock {
    unsigned short year = 0;
    unsigned short month = 0;  // 1 to 12
    unsigned short day = 0;    // 1 to 31
    unsigned short hour = 0;
    unsigned short minute = 0;
    unsigned short second = 0;  // 60 in a leap second
    unsigned short hundredth = 0;
};

/// Returns the current time in the local time zone.
[[nodiscard]] LocalClock LocalNow() noexcept;

}  // namespace platform
