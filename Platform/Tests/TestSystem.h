// TestSystem: what a test asks the system about the program that it runs in.
#pragma once

namespace tests {

/// How much of a processor the program took since it began, in milliseconds.
[[nodiscard]] double ProcessorMs();

/// Whether the process's memory says what the program holds: AddressSanitizer keeps what was given back.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool MemoryIsMeasurable = false;
#else
inline constexpr bool MemoryIsMeasurable = true;
#endif
/// The program's memory that is not swapped out, in KiB.
[[nodiscard]] long ResidentKiB();

/// Whether the system is Wine, which lacks parts of dynamic data exchange that Windows has.
[[nodiscard]] bool IsUnderWine();

}  // namespace tests
