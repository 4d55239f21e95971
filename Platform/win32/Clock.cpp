#include "Platform/Clock.h"

#include <windows.h>

namespace platform {

LocalClock LocalNow() noexcept {
    SYSTEMTIME now = {};
    ::GetLocalTime(&now);
    auto const hundredth = static_cast<unsigned short>(now.wMilliseconds / 10);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, hundredth};
}

}  // namespace platform
