// Library: shared libraries loaded at run time.
#pragma once

#include <string>

namespace platform {

/// ".dll" or ".so".
[[nodiscard]] char const* LibrarySuffix() noexcept;
/// Loads a library, which is searched for as the system does. Returns null on failure and stores the system's
/// error number in `error`: never 0, and always ELIBACC on POSIX, whose loader provides none.
[[nodiscard]] void* LoadLibraryFile(std::string const& fileName, unsigned long& error);
/// Returns the address of an exported function; null on failure, with the system's error number (ENOSYS on
/// POSIX) in `error`.
[[nodiscard]] void* FunctionAddress(void* library, std::string const& name, unsigned long& error);
void FreeLibraryFile(void* library);

}  // namespace platform
