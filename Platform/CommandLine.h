// CommandLine: the arguments of the program in one encoding on every system.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The arguments behind the program's name in UTF-8. The parameters are those of `main`.
[[nodiscard]] std::vector<std::string> Arguments(int count, char const* const* values);

}  // namespace platform
