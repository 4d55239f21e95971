// Names of files between the suite and the system: the suite writes them in its code page and with either
// separator, the ground floor takes UTF-8 and the system's own separator.
#pragma once

#include "SV/core/String.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace sv {

/// The system's own separator, "\" on Windows and "/" elsewhere.
inline constexpr char PathSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// The name as the services of the ground floor take it. Every byte has its own character here, those
/// included that the code page leaves open, so that different names stay different.
[[nodiscard]] std::string NativePath(String const& path);
/// The name as the suite writes it. A character that its code page lacks becomes "?".
[[nodiscard]] String FromNativePath(std::string_view path);

/// The same for the standard library's streams and file operations.
[[nodiscard]] std::filesystem::path FilePath(String const& path);

}  // namespace sv
