#include "Platform/UserFolders.h"

#include <windows.h>

#include <cstdlib>
#include <string>
#include <system_error>

namespace platform {

std::filesystem::path SettingsFolder() {
    wchar_t const* const folder = _wgetenv(L"APPDATA");
    return folder == nullptr ? L"" : folder;
}

// The folder for temporary files is private to the user on Windows.
std::filesystem::path MakePrivateFolder(std::string const& prefix) {
    std::error_code error;
    std::filesystem::path const temporary = std::filesystem::temp_directory_path(error);
    if (error) return {};
    for (unsigned number = 0; number < 1000; ++number) {
        std::string const mark = std::to_string(::GetCurrentProcessId()) + '-' + std::to_string(number);
        std::filesystem::path folder = temporary / (prefix + '-' + mark);
        if (std::filesystem::create_directory(folder, error)) return folder;
    }
    return {};
}

}  // namespace platform
