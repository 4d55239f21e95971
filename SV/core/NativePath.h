// File names between the suite, which writes them in the code page of the language (`TextPage`) with either
// separator, and the system, which takes UTF-8 and its own separator.
#pragma once

#include "SV/core/String.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace sv {

/// The separator of the system: "\" on Windows, "/" elsewhere.
inline constexpr char PathSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// Converts a name to the system's form. In the Western code page each byte has its own character, those that
/// the page leaves open included, so that different names stay different. A name that is not valid in the
/// Japanese or Chinese page, or a page that the system does not have, is converted as Western.
[[nodiscard]] std::string NativePath(String const& path);
/// Converts a name to the suite's form. A character that the code page lacks becomes "?".
[[nodiscard]] String FromNativePath(std::string_view path);

/// The same for the streams and file operations of the standard library.
[[nodiscard]] std::filesystem::path FilePath(String const& path);

}  // namespace sv
