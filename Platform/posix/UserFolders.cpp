#include "Platform/UserFolders.h"

#include <cstdlib>

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

}  // namespace platform
