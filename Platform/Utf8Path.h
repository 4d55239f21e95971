// Utf8Path: converts file names between UTF-8, which all services here take, and std::filesystem::path.
// Unlike the standard library's conversions these never throw: what is not a character becomes U+FFFD on
// Windows, and POSIX keeps all bytes as they are.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

[[nodiscard]] std::filesystem::path PathOf(std::string_view utf8);
[[nodiscard]] std::string Utf8Of(std::filesystem::path const& path);

}  // namespace platform
