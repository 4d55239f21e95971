// Run: the whole program, given its arguments and environment.
#pragma once

#include "Apps/kvcolor/Environment.h"

#include <string>
#include <vector>

namespace kvcolor {

/// Exit statuses. A closed pipe is a failed output too, but without a message.
inline constexpr int Success = 0;
inline constexpr int UnusableInput = 2;
inline constexpr int OutputFailed = 3;

/// Runs the command named by the arguments (UTF-8, without the program's name) and returns the exit status.
/// Throws nothing; every line on standard error begins with "kvcolor: ". Leaves the conditions of the command
/// in the library's context.
[[nodiscard]] int Run(std::vector<std::string> arguments, Environment const& environment);

}  // namespace kvcolor
