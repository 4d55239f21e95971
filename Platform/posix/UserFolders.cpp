#include "Platform/UserFolders.h"

#include <cstdlib>
#include <system_error>

namespace platform {

namespace {

std::filesystem::path FromVariable(char const* name) {
    char const* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing sets one
    return value == nullptr ? "" : value;
}

}  // namespace

std::filesystem::path SettingsFolder() {
    std::filesystem::path folder = FromVariable("XDG_CONFIG_HOME");
    return folder.empty() ? FromVariable("HOME") / ".config" : folder;
}

std::filesystem::path MakePrivateFolder(std::string const& prefix) {
    std::error_code error;
    std::string name = (std::filesystem::temp_directory_path(error) / (prefix + "-XXXXXX")).string();
    return error || ::mkdtemp(name.data()) == nullptr ? "" : name;
}

}  // namespace platform
