#include "SV/core/DateTime.h"

#include "Platform/Clock.h"

namespace sv {

namespace {

Date DateOf(platform::LocalClock const& clock) noexcept { return {clock.day, clock.month, clock.year}; }

Time TimeOf(platform::LocalClock const& clock) noexcept {
    return {clock.hour, clock.minute, clock.second, clock.hundredth};
}

}  // namespace

Date::Date() : Date(DateOf(platform::LocalNow())) {}
Time::Time() : Time(TimeOf(platform::LocalNow())) {}

}  // namespace sv
