// SuiteText: converts between UTF-8, the encoding of the programs, and Windows-1252, the code page of the
// suite's files and messages.
#pragma once

#include "SV/core/String.h"

#include <string>
#include <string_view>

namespace files {

/// Converts UTF-8 to Windows-1252; a character outside the code page becomes "?".
[[nodiscard]] inline std::string ToSuite(std::string_view utf8) {
    return std::string(sv::String::FromUtf8(utf8).View());
}
/// Converts Windows-1252 to UTF-8.
[[nodiscard]] inline std::string FromSuite(std::string_view bytes) { return sv::String(bytes).ToUtf8(); }

}  // namespace files
