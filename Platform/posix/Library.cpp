#include "Platform/Library.h"

#include <cerrno>
#include <dlfcn.h>

namespace platform {

char const* LibrarySuffix() noexcept { return ".so"; }

void* LoadLibraryFile(std::string const& fileName, unsigned long& error) {
    void* const library = ::dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
    // The loader reports text only; this is the matching error number.
    if (library == nullptr) error = ELIBACC;
    return library;
}

void* FunctionAddress(void* library, std::string const& name, unsigned long& error) {
    void* const address = ::dlsym(library, name.c_str());
    if (address == nullptr) error = ENOSYS;
    return address;
}

void FreeLibraryFile(void* library) {
    if (library != nullptr) ::dlclose(library);
}

}  // namespace platform
