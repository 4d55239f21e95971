#include "Platform/Utf8Path.h"

namespace platform {

std::filesystem::path PathOf(std::string_view utf8) { return utf8; }

std::string Utf8Of(std::filesystem::path const& path) { return path.native(); }

}  // namespace platform
