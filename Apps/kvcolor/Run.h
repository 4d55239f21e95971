// Run: the whole program behind its arguments.
#pragma once

#include "Apps/kvcolor/Environment.h"

#include <string>
#include <vector>

namespace kvcolor {

inline constexpr char const* Version = "0.1.0";

/// Exit statuses.
inline constexpr int Success = 0;
inline constexpr int UnusableInput = 2;
inline constexpr int OutputFailed = 3;

/// Runs the command that the arguments (UTF-8, without the program's name) ask for and returns the exit
/// status. Throws nothing; every line on standard error begins with "kvcolor: ". The library's context holds
/// the conditions of the command afterwards.
[[nodiscard]] int Run(std::vector<std::string> arguments, Environment const& environment);

}  // namespace kvcolor
