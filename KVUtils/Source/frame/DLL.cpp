#include "KVUtils/Source/frame/DLL.h"

#include "Platform/Library.h"

namespace kv {

namespace {

using SystemError = unsigned long;

}  // namespace

DLL::DLL(std::string const& name) {
    unsigned long error = 0;
    module_ = platform::LoadLibraryFile(name + platform::LibrarySuffix(), error);
    if (module_ == nullptr) throw SystemError(error);
}

void* DLL::GetFunctionPointer(std::string const& name) const {
    unsigned long error = 0;
    void* const function = platform::FunctionAddress(module_, name, error);
    if (function == nullptr) throw SystemError(error);
    return function;
}

}  // namespace kv
