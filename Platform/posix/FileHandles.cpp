#include "Platform/Files.h"
#include "Platform/posix/Descriptor.h"

#include <cstdint>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

namespace {

using detail::Descriptor;
using detail::Retry;

// The handle is the descriptor's number plus 1, so that it is never null.
void* ToHandle(int number) noexcept {
    return reinterpret_cast<void*>(std::intptr_t{number} + 1);  // NOLINT(performance-no-int-to-ptr)
}

int ToNumber(void* handle) noexcept { return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1); }

int AccessFlags(FileAccess access) noexcept {
    switch (access) {
        case FileAccess::Read:
            return O_RDONLY;
        case FileAccess::Write:
            return O_WRONLY;
        default:
            return O_RDWR;
    }
}

bool IsDirectory(Descriptor const& file) noexcept {
    struct stat status = {};
    return ::fstat(file.Number(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Transfers up to `count` bytes by calls that may transfer fewer; stores the number transferred in `count`.
template <class Move>
bool MoveAll(unsigned long& count, Move const& move) {
    unsigned long done = 0;
    ssize_t last = 1;
    while (done < count && last > 0) {
        last = Retry([&] { return move(done, count - done); });
        if (last > 0) done += static_cast<unsigned long>(last);
    }
    count = done;
    return last >= 0;
}

}  // namespace

void* OpenFile(std::string const& path, FileAccess access, FileDisposition disposition) {
    constexpr mode_t PlainFile = 0666;
    int const create = disposition == FileDisposition::OpenOrCreate ? O_CREAT : 0;
    int const flags = AccessFlags(access) | create | O_CLOEXEC;
    Descriptor file(Retry([&] { return ::open(path.c_str(), flags, PlainFile); }));
    if (!file || IsDirectory(file)) return nullptr;
    // Only one writer is allowed at a time; readers are not restricted.
    bool const isWriter = access != FileAccess::Read;
    if (isWriter && ::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) return nullptr;
    return ToHandle(file.Release());
}

bool CloseFile(void* handle) { return ::close(ToNumber(handle)) == 0; }

bool ReadFile(void* handle, void* target, unsigned long& count) {
    return MoveAll(count, [&](unsigned long done, unsigned long rest) {
        return ::read(ToNumber(handle), static_cast<char*>(target) + done, rest);
    });
}

bool WriteFile(void* handle, void const* source, unsigned long& count) {
    return MoveAll(count, [&](unsigned long done, unsigned long rest) {
        return ::write(ToNumber(handle), static_cast<char const*>(source) + done, rest);
    });
}

bool SeekToStart(void* handle) { return ::lseek(ToNumber(handle), 0, SEEK_SET) == 0; }

bool Truncate(void* handle) { return SeekToStart(handle) && ::ftruncate(ToNumber(handle), 0) == 0; }

std::string ShortPath(std::string const& path) { return path; }

std::optional<std::string> NetworkNameOfDrive(std::string const& /*drive*/, bool /*connected*/) {
    return std::nullopt;
}

}  // namespace platform
