// CommandLine: the program's arguments and its own file name, in UTF-8 on every system.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// Returns the arguments after the program's name in UTF-8. Pass the parameters of `main`; Windows ignores
/// them and reads the command line from the system, since those of `main` have passed through the code page.
[[nodiscard]] std::vector<std::string> Arguments(int count, char const* const* values);

/// Returns the full path of the running program in UTF-8; empty when the system does not provide it.
[[nodiscard]] std::string RunningProgram();

}  // namespace platform
