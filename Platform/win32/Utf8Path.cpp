#include "Platform/Utf8Path.h"

#include "Platform/win32/Wide.h"

namespace platform {

std::filesystem::path PathOf(std::string_view utf8) { return detail::Widen(utf8); }

std::string Utf8Of(std::filesystem::path const& path) { return detail::Narrow(path.native()); }

}  // namespace platform
