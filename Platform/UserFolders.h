// UserFolders: where the system keeps a user's own things.
#pragma once

#include <filesystem>

namespace platform {

/// The folder for the settings of programs: $XDG_CONFIG_HOME, else ~/.config; %APPDATA% on Windows. It need
/// not exist.
[[nodiscard]] std::filesystem::path SettingsFolder();

}  // namespace platform
