// UserFolders: the user's own folders.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

/// Returns the folder for settings of programs: $XDG_CONFIG_HOME, else ~/.config; %APPDATA% on Windows. It
/// may not exist.
[[nodiscard]] std::filesystem::path SettingsFolder();

/// Creates a folder for temporary files that only the user can access; the caller removes it. Its name begins
/// with `prefix`. Returns an empty path on failure.
[[nodiscard]] std::filesystem::path MakePrivateFolder(std::string const& prefix);

}  // namespace platform
