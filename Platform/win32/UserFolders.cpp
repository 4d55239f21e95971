#include "Platform/UserFolders.h"

#include <cstdlib>

namespace platform {

std::filesystem::path SettingsFolder() {
    wchar_t const* const folder = _wgetenv(L"APPDATA");
    return folder == nullptr ? L"" : folder;
}

}  // namespace platform
