// Library: shared libraries that are loaded while the program runs.
#pragma once

#include <string>

namespace platform {

/// ".dll" or ".so".
[[nodiscard]] char const* LibrarySuffix() noexcept;
/// Loads a library by its file name, found as the system finds libraries. On failure null, and `error` is the
/// system's error number, never 0: on POSIX, whose loader gives none, always ELIBACC.
[[nodiscard]] void* LoadLibraryFile(std::string const& fileName, unsigned long& error);
/// The address of an exported function; on failure null and the system's error number (ENOSYS on
/// POSIX).
[[nodiscard]] void* FunctionAddress(void* library, std::string const& name, unsigned long& error);
void FreeLibraryFile(void* library);

}  // namespace platform
