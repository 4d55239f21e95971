#include "Platform/Files.h"

#include "Platform/win32/Wide.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace platform {

namespace {

using detail::Handle;
using detail::Widen;

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Returns whether the error is temporary: another program reads or replaces the file.
bool IsTemporary(DWORD error) noexcept {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_LOCK_VIOLATION;
}

/// Repeats a call, 5 ms apart, while another program blocks it. The call returns whether it succeeded.
template <class Call>
bool CallRepeatedly(int attempts, Call const& call) {
    for (; attempts > 0; --attempts) {
        if (call()) return true;
        if (!IsTemporary(::GetLastError())) return false;
        ::Sleep(5);
    }
    return false;
}

constexpr int ReaderAttempts = 40;
constexpr int WriterAttempts = 1000;  // many writers may be waiting

bool IsReadOnly(std::wstring const& name) noexcept {
    DWORD const attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool IsDirectory(std::wstring const& name) noexcept {
    DWORD const attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::uint64_t Join(DWORD high, DWORD low) noexcept { return std::uint64_t{high} << 32 | low; }

std::int64_t Nanoseconds(FILETIME const& time) noexcept {
    constexpr std::int64_t From1601To1970 = 116'444'736'000'000'000;
    return (static_cast<std::int64_t>(Join(time.dwHighDateTime, time.dwLowDateTime)) - From1601To1970) * 100;
}

bool WriteAll(HANDLE file, std::string_view content) noexcept {
    constexpr std::size_t MaxPart = 1 << 30;
    while (!content.empty()) {
        DWORD done = 0;
        auto const part = static_cast<DWORD>(std::min(content.size(), MaxPart));
        if (::WriteFile(file, content.data(), part, &done, nullptr) == 0) return false;
        content.remove_prefix(done);
    }
    return true;
}

/// Copies the access list and the attributes of the replaced file, if any.
void CopyPermissions(std::wstring const& to, std::wstring const& from) {
    DWORD size = 0;
    ::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> list(size);
    if (size != 0 &&
        ::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size) != 0) {
        ::SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, list.data());
    }
    DWORD const attributes = ::GetFileAttributesW(from.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) ::SetFileAttributesW(to.c_str(), attributes);
}

/// Renames an open file, so that no other program can open it between the last write and the renaming.
bool RenameOver(HANDLE file, std::wstring const& target) {
    std::size_t const bytes = target.size() * sizeof(wchar_t);
    // Elements of the structure ensure its alignment.
    std::vector<FILE_RENAME_INFO> room(bytes / sizeof(FILE_RENAME_INFO) + 2);
    FILE_RENAME_INFO& rename = room.front();
    rename.ReplaceIfExists = TRUE;
    rename.FileNameLength = static_cast<DWORD>(bytes);
    // The name extends past the one character that the structure declares.
    auto* const bytesOfRoom = reinterpret_cast<std::byte*>(room.data());
    std::memcpy(bytesOfRoom + offsetof(FILE_RENAME_INFO, FileName), target.data(), bytes);
    auto const size = static_cast<DWORD>(room.size() * sizeof(FILE_RENAME_INFO));
    return CallRepeatedly(ReaderAttempts, [&] {
        return ::SetFileInformationByHandle(file, FileRenameInfo, room.data(), size) != 0;
    });
}

std::wstring FullName(std::wstring const& name) {
    DWORD const size = ::GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(::GetFullPathNameW(name.c_str(), size, full.data(), nullptr));
    return full;
}

/// Returns the identity of a link's target.
std::optional<FileIdentity> IdentifyTarget(std::wstring const& name) {
    Handle const file(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, ShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION about = {};
    if (!file || ::GetFileInformationByHandle(file.Get(), &about) == 0) return std::nullopt;
    return FileIdentity{about.dwVolumeSerialNumber, Join(about.nFileIndexHigh, about.nFileIndexLow),
                        Join(about.nFileSizeHigh, about.nFileSizeLow), Nanoseconds(about.ftLastWriteTime)};
}

}  // namespace

std::optional<FileIdentity> Identify(std::string const& path) {
    std::wstring const name = Widen(path);
    WIN32_FILE_ATTRIBUTE_DATA about = {};
    if (::GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &about) == 0) return std::nullopt;
    if ((about.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return IdentifyTarget(name);
    // Obtaining the file's number requires opening the file, which costs many times as much; the creation
    // time replaces it.
    FILETIME const& made = about.ftCreationTime;
    return FileIdentity{0, Join(made.dwHighDateTime, made.dwLowDateTime),
                        Join(about.nFileSizeHigh, about.nFileSizeLow), Nanoseconds(about.ftLastWriteTime)};
}

std::string FollowLinks(std::string const& path) {
    std::wstring const name = Widen(path);
    DWORD const attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    Handle const file(::CreateFileW(name.c_str(), 0, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return path;
    DWORD const size = ::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring target(size, L'\0');
    target.resize(::GetFinalPathNameByHandleW(file.Get(), target.data(), size, FILE_NAME_NORMALIZED));
    return target.empty() ? path : detail::Narrow(target);
}

std::optional<std::string> ReadWhole(std::string const& path) {
    std::wstring const name = Widen(path);
    if (IsDirectory(name)) return std::nullopt;
    Handle file;
    bool const isOpen = CallRepeatedly(ReaderAttempts, [&] {
        file = Handle(::CreateFileW(name.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    });
    if (!isOpen) return std::nullopt;
    std::string content;
    constexpr std::size_t Block = 1 << 16;
    while (true) {
        std::size_t const length = content.size();
        content.resize(length + Block);
        DWORD done = 0;
        if (::ReadFile(file.Get(), content.data() + length, Block, &done, nullptr) == 0) return std::nullopt;
        content.resize(length + done);
        if (done == 0) return content;
    }
}

bool ReplaceAtomically(std::string const& path, std::string_view content) {
    std::wstring const target = FullName(Widen(FollowLinks(path)));
    std::wstring const fresh = target + L".replacing";
    if (IsReadOnly(target) || IsDirectory(target)) return false;
    Handle file;
    // Not shared: other writers wait here.
    bool const isOpen = CallRepeatedly(WriterAttempts, [&] {
        file = Handle(::CreateFileW(fresh.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    });
    if (!isOpen) return false;
    CopyPermissions(fresh, target);
    // A killed writer may have left a longer content.
    bool const isReady = ::SetEndOfFile(file.Get()) != 0 && WriteAll(file.Get(), content) &&
                         ::FlushFileBuffers(file.Get()) != 0;
    if (isReady && RenameOver(file.Get(), target)) return true;
    file = Handle();
    ::DeleteFileW(fresh.c_str());
    return false;
}

struct FileLock::Handle {
    detail::Handle file;
};

FileLock::FileLock(std::string const& lockFile) {
    detail::Handle file(::CreateFileW(Widen(lockFile).c_str(), GENERIC_READ | GENERIC_WRITE, ShareAll,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    OVERLAPPED start = {};
    if (!file || ::LockFileEx(file.Get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &start) == 0) return;
    handle_ = std::make_unique<Handle>(Handle{std::move(file)});
}

FileLock::~FileLock() = default;

bool FileLock::IsHeld() const noexcept { return handle_ != nullptr; }

}  // namespace platform
