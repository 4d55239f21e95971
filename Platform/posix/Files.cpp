#include "Platform/Files.h"

#include "Platform/posix/Descriptor.h"

#include <climits>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

namespace {

using detail::Descriptor;
using detail::Retry;

constexpr mode_t PlainFile = 0666;  // before the umask

std::int64_t Nanoseconds(timespec const& time) noexcept {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

Descriptor Open(std::string const& path, int flags) noexcept {
    return Descriptor(Retry([&] { return ::open(path.c_str(), flags | O_CLOEXEC, PlainFile); }));
}

std::string DirectoryOf(std::string const& path) {
    std::size_t const separator = path.rfind('/');
    return separator == std::string::npos ? "." : path.substr(0, separator + 1);
}

bool WriteAll(Descriptor const& file, std::string_view content) noexcept {
    while (!content.empty()) {
        auto const done = Retry([&] { return ::write(file.Number(), content.data(), content.size()); });
        if (done < 0) return false;
        content.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
}

bool IsSameFile(Descriptor const& file, std::string const& path) noexcept {
    struct stat open = {};
    struct stat named = {};
    return ::fstat(file.Number(), &open) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

/// Opens the file for the new content, empty and locked against other writers.
Descriptor OpenReplacement(std::string const& path) {
    while (true) {
        Descriptor file = Open(path, O_WRONLY | O_CREAT | O_NOFOLLOW);
        // A file left by another user's program is not writable but can be removed.
        if (!file && errno == EACCES && ::unlink(path.c_str()) == 0) continue;
        if (!file || Retry([&] { return ::flock(file.Number(), LOCK_EX); }) != 0) return {};
        // The previous holder of the lock has renamed the file, so this may be another one.
        if (!IsSameFile(file, path)) continue;
        if (::ftruncate(file.Number(), 0) != 0) return {};
        return file;
    }
}

/// Copies the permissions of the replaced file and, if allowed, its owner.
bool CopyPermissions(Descriptor const& file, std::string const& from) noexcept {
    struct stat old = {};
    if (::stat(from.c_str(), &old) != 0) return errno == ENOENT;
    struct stat own = {};
    bool const isOther =
        ::fstat(file.Number(), &own) == 0 && (own.st_uid != old.st_uid || own.st_gid != old.st_gid);
    bool const isGiven = !isOther || ::fchown(file.Number(), old.st_uid, old.st_gid) == 0;
    // Set-user-ID bits must not grant another owner's rights.
    return ::fchmod(file.Number(), old.st_mode & (isGiven ? 07777U : 0777U)) == 0;
}

/// Makes the new name survive a system crash. File systems that cannot do so still keep the content whole.
void SyncDirectory(std::string const& path) {
    if (Descriptor const directory = Open(DirectoryOf(path), O_RDONLY | O_DIRECTORY)) {
        ::fsync(directory.Number());
    }
}

}  // namespace

std::optional<FileIdentity> Identify(std::string const& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    // Includes the time of the last status change: copying may set an old modification time.
    return FileIdentity{static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
                        static_cast<std::uint64_t>(status.st_size),
                        std::max(Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim))};
}

std::string FollowLinks(std::string const& path) {
    constexpr int MaxLinks = 40;  // as the system allows
    std::string name = path;
    for (int links = 0; links < MaxLinks; ++links) {
        std::array<char, PATH_MAX> target = {};
        auto const length = ::readlink(name.c_str(), target.data(), target.size());
        if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return name;
        std::string const next(target.data(), static_cast<std::size_t>(length));
        name = next.front() == '/' ? next : DirectoryOf(name).append("/").append(next);
    }
    return path;
}

std::optional<std::string> ReadWhole(std::string const& path) {
    Descriptor const file = Open(path, O_RDONLY);
    struct stat status = {};
    if (!file || ::fstat(file.Number(), &status) != 0) return std::nullopt;
    // One byte more than the size, since the read that detects the end needs space. Some files report a size
    // of 0.
    std::string content(static_cast<std::size_t>(std::max<off_t>(status.st_size, 0)) + 1, '\0');
    std::size_t length = 0;
    while (true) {
        if (length == content.size()) content.resize(2 * length);
        auto const done =
            Retry([&] { return ::read(file.Number(), content.data() + length, content.size() - length); });
        if (done < 0) return std::nullopt;
        if (done == 0) break;
        length += static_cast<std::size_t>(done);
    }
    content.resize(length);
    return content;
}

bool ReplaceAtomically(std::string const& path, std::string_view content) {
    std::string const target = FollowLinks(path);
    // Write access to the directory would suffice, but a file that is not writable must not be replaced.
    if (::access(target.c_str(), W_OK) != 0 && errno != ENOENT) return false;
    std::string const fresh = target + ".replacing";
    Descriptor const file = OpenReplacement(fresh);
    if (!file) return false;
    bool const isReady =
        WriteAll(file, content) && CopyPermissions(file, target) && ::fsync(file.Number()) == 0;
    if (!isReady || ::rename(fresh.c_str(), target.c_str()) != 0) {
        ::unlink(fresh.c_str());
        return false;
    }
    SyncDirectory(target);
    return true;
}

struct FileLock::Handle {
    Descriptor file;
};

FileLock::FileLock(std::string const& lockFile) {
    // Locking needs no write access, which another user's lock file may refuse.
    Descriptor file = Open(lockFile, O_RDWR | O_CREAT);
    if (!file) file = Open(lockFile, O_RDONLY);
    if (!file || Retry([&] { return ::flock(file.Number(), LOCK_EX); }) != 0) return;
    handle_ = std::make_unique<Handle>(Handle{std::move(file)});
}

FileLock::~FileLock() = default;

bool FileLock::IsHeld() const noexcept { return handle_ != nullptr; }

}  // namespace platform
