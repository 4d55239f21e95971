#include "Platform/Library.h"

#include "Platform/win32/Wide.h"

namespace platform {

char const* LibrarySuffix() noexcept { return ".dll"; }

void* LoadLibraryFile(std::string const& fileName, unsigned long& error) {
    HMODULE const library = ::LoadLibraryW(detail::Widen(fileName).c_str());
    if (library == nullptr) error = ::GetLastError();
    return library;
}

void* FunctionAddress(void* library, std::string const& name, unsigned long& error) {
    FARPROC const address = ::GetProcAddress(static_cast<HMODULE>(library), name.c_str());
    if (address == nullptr) error = ::GetLastError();
    return reinterpret_cast<void*>(address);
}

void FreeLibraryFile(void* library) {
    if (library != nullptr) ::FreeLibrary(static_cast<HMODULE>(library));
}

}  // namespace platform
