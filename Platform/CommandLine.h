// CommandLine: how the program was called: its arguments and its own name, in one encoding on every system.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The arguments behind the program's name in UTF-8. The parameters are those of `main`.
[[nodiscard]] std::vector<std::string> Arguments(int count, char const* const* values);

/// The full name of the running program's file in UTF-8; empty when the system does not tell.
[[nodiscard]] std::string RunningProgram();

}  // namespace platform
