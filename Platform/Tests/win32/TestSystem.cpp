#include "Platform/Tests/TestSystem.h"

#include <windows.h>

#include <psapi.h>

namespace tests {

// clock() of the C library measures real time here.
double ProcessorMs() {
    FILETIME created;
    FILETIME ended;
    FILETIME kernel;
    FILETIME user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    auto const ticks = [](FILETIME time) { return (1ULL << 32) * time.dwHighDateTime + time.dwLowDateTime; };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 10'000;
}

long ResidentKiB() {
    PROCESS_MEMORY_COUNTERS counters = {};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long>(counters.WorkingSetSize / 1024);
}

bool IsUnderWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

}  // namespace tests
