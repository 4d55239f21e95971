// TestSystem: waiting with a limit, and what a test asks the system about its own program.
#pragma once

#include <chrono>
#include <thread>

namespace tests {

/// Sleeps until the condition holds; returns false on timeout.
template <class Condition>
[[nodiscard]] bool WaitUntil(Condition const& condition,
                             std::chrono::seconds limit = std::chrono::seconds(10)) {
    auto const deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Returns the processor time of the program in milliseconds.
[[nodiscard]] double ProcessorMs();

/// Whether the memory of the process shows what the program holds: the sanitizers keep memory of their own.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool MemoryIsMeasurable = false;
#else
inline constexpr bool MemoryIsMeasurable = true;
#endif
/// Returns the program's resident memory in KiB.
[[nodiscard]] long ResidentKiB();

/// Returns whether the system is Wine, which lacks parts of dynamic data exchange.
[[nodiscard]] bool IsUnderWine();

}  // namespace tests
