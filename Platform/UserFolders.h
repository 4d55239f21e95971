// UserFolders: where the system keeps a user's own things.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

/// The folder for the settings of programs: $XDG_CONFIG_HOME, else ~/.config; %APPDATA% on Windows. It need
/// not exist.
[[nodiscard]] std::filesystem::path SettingsFolder();

/// A new folder for temporary files, which only the user can enter; the caller removes it. Its name begins
/// with `prefix`. Empty where none can be made.
[[nodiscard]] std::filesystem::path MakePrivateFolder(std::string const& prefix);

}  // namespace platform
