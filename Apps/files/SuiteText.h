// SuiteText: between UTF-8, in which the programs here hold text, and the suite's code page, in which its
// files and messages do.
#pragma once

#include <string>
#include <string_view>

namespace files {

/// In Windows-1252; a character that it lacks becomes "?".
[[nodiscard]] std::string ToSuite(std::string_view utf8);
/// In UTF-8.
[[nodiscard]] std::string FromSuite(std::string_view bytes);

}  // namespace files
