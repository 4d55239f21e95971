#include "Platform/Files.h"
#include "Platform/win32/Wide.h"

#include <array>
#include <vector>

// Requires <windows.h> before it.
#include <winnetwk.h>

namespace platform {

namespace {

using detail::Narrow;
using detail::Widen;

DWORD AccessBits(FileAccess access) noexcept {
    switch (access) {
        case FileAccess::Read:
            return GENERIC_READ;
        case FileAccess::Write:
            return GENERIC_WRITE;
        default:
            return GENERIC_READ | GENERIC_WRITE;
    }
}

/// Searches the system's list of resources and returns the remote name of the first one with the drive's
/// local name.
std::optional<std::string> FindRemoteName(HANDLE resources, std::wstring const& drive) {
    constexpr DWORD BufferSize = 100'000;
    // Elements of the resource's type ensure its alignment.
    std::vector<NETRESOURCEW> buffer(BufferSize / sizeof(NETRESOURCEW));
    while (true) {
        DWORD count = static_cast<DWORD>(-1);  // as many as fit
        DWORD size = BufferSize;
        if (::WNetEnumResourceW(resources, &count, buffer.data(), &size) != NO_ERROR) return std::nullopt;
        for (DWORD i = 0; i < count; ++i) {
            NETRESOURCEW const& resource = buffer[i];
            if (resource.lpLocalName == nullptr || resource.lpRemoteName == nullptr) continue;
            if (::lstrcmpiW(resource.lpLocalName, drive.c_str()) == 0) return Narrow(resource.lpRemoteName);
        }
    }
}

}  // namespace

void* OpenFile(std::string const& path, FileAccess access, FileDisposition disposition) {
    DWORD const share = access == FileAccess::Read ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
    DWORD const create = disposition == FileDisposition::OpenOrCreate ? OPEN_ALWAYS : OPEN_EXISTING;
    detail::Handle file(::CreateFileW(Widen(path).c_str(), AccessBits(access), share, nullptr, create,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.Release();
}

bool CloseFile(void* handle) { return ::CloseHandle(handle) != 0; }

bool ReadFile(void* handle, void* target, unsigned long& count) {
    return ::ReadFile(handle, target, count, &count, nullptr) != 0;
}

bool WriteFile(void* handle, void const* source, unsigned long& count) {
    return ::WriteFile(handle, source, count, &count, nullptr) != 0;
}

bool SeekToStart(void* handle) { return ::SetFilePointer(handle, 0, nullptr, FILE_BEGIN) == 0; }

bool Truncate(void* handle) { return SeekToStart(handle) && ::SetEndOfFile(handle) != 0; }

std::string ShortPath(std::string const& path) {
    std::array<wchar_t, 260> name = {};
    DWORD const length = ::GetShortPathNameW(Widen(path).c_str(), name.data(), name.size());
    if (length == 0 || length >= name.size()) return path;
    return Narrow({name.data(), length});
}

std::optional<std::string> NetworkNameOfDrive(std::string const& drive, bool connected) {
    DWORD const scope = connected ? RESOURCE_CONNECTED : RESOURCE_REMEMBERED;
    HANDLE resources = nullptr;
    if (::WNetOpenEnumW(scope, RESOURCETYPE_DISK, 0, nullptr, &resources) != NO_ERROR) return std::nullopt;
    auto name = FindRemoteName(resources, Widen(drive));
    ::WNetCloseEnum(resources);
    return name;
}

}  // namespace platform
