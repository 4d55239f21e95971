// Clock: the time of day where the user is.
#pragma once

namespace platform {

/// A moment as a calendar and a clock on the wall show it.
struct LocalClock {
    unsigned short year = 0;
    unsigned short month = 0;  // 1 to 12
    unsigned short day = 0;    // 1 to 31
    unsigned short hour = 0;
    unsigned short minute = 0;
    unsigned short second = 0;  // 60 in a leap second
    unsigned short hundredth = 0;
};

/// Now, in the local time zone.
[[nodiscard]] LocalClock LocalNow() noexcept;

}  // namespace platform
