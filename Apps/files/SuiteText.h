// SuiteText: converts between UTF-8, the encoding of the programs, and Windows-1252, the code page of the
// suite's files and messages.
#pragma once

#include "SV/core/String.h"

#include <string>
#include <string_view>

namespace files {

/// Replaces a letter with a combining mark by the single character, if Windows-1252 has it. UTF-8.
[[nodiscard]] std::string Composed(std::string_view utf8);
/// Converts UTF-8 to Windows-1252, with letters composed; a character outside the code page becomes "?".
[[nodiscard]] std::string ToSuite(std::string_view utf8);
/// Converts Windows-1252 to UTF-8.
[[nodiscard]] inline std::string FromSuite(std::string_view bytes) { return sv::String(bytes).ToUtf8(); }
/// Whether `ToSuite` keeps every character.
[[nodiscard]] bool FitsSuite(std::string_view utf8);

}  // namespace files
