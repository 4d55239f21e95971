// Utf8Path: converts file names between UTF-8, which all services here take, and std::filesystem::path.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

[[nodiscard]] inline std::filesystem::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

[[nodiscard]] inline std::string Utf8Of(std::filesystem::path const& path) {
    std::u8string const name = path.u8string();
    return {name.begin(), name.end()};
}

}  // namespace platform
