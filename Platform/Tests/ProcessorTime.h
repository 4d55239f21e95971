// ProcessorTime: how much of a processor the program took, for tests of what waits.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <ctime>
#endif

namespace tests {

/// In milliseconds, since the program began.
[[nodiscard]] inline double ProcessorMs() {
#ifdef _WIN32
    // The C library's clock() is that of the wall here.
    FILETIME created;
    FILETIME ended;
    FILETIME kernel;
    FILETIME user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    auto const ticks = [](FILETIME time) { return (1ULL << 32) * time.dwHighDateTime + time.dwLowDateTime; };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 10'000;
#else
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

}  // namespace tests
