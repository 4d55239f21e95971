#include "Platform/Clock.h"

#include <ctime>

namespace platform {

LocalClock LocalNow() noexcept {
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    std::tm local = {};
    ::localtime_r(&now.tv_sec, &local);
    auto const narrow = [](long number) { return static_cast<unsigned short>(number); };
    return {narrow(local.tm_year + 1900),    narrow(local.tm_mon + 1), narrow(local.tm_mday),
            narrow(local.tm_hour),           narrow(local.tm_min),     narrow(local.tm_sec),
            narrow(now.tv_nsec / 10'000'000)};
}

}  // namespace platform
