#include "Platform/CommandLine.h"

#include <filesystem>
#include <system_error>

namespace platform {

std::vector<std::string> Arguments(int count, char const* const* values) {
    return {values + (count > 0 ? 1 : 0), values + count};
}

std::string RunningProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace platform
