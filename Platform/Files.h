// Files: what the standard library leaves out of file handling. Names are in the suite's code page on the
// floors above; here they are the system's own: UTF-8 on POSIX, UTF-8 too on Windows, where it is widened for
// the system's calls.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What tells two states of a file apart. Two changes that follow each other within a step of the file
/// system's clock, some milliseconds, can leave the same identity.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds since 1970, UTC

    friend bool operator==(FileIdentity const&, FileIdentity const&) = default;
};

/// None when there is no such file.
[[nodiscard]] std::optional<FileIdentity> Identify(std::string const& path);

/// The file that a symbolic link stands for in the end; any other name as it is.
[[nodiscard]] std::string FollowLinks(std::string const& path);

/// The whole content; none when the file cannot be read.
[[nodiscard]] std::optional<std::string> ReadWhole(std::string const& path);

/// Puts a new content in place of a file's, or makes the file: at any moment the name stands for the old or
/// for the new content, whole, and after a crash of the machine too. Keeps the permissions of a file that it
/// replaces, and follows a symbolic link. False when that failed; the old file then stands. The new content
/// is prepared in "PATH.replacing" beside it, which a process that is killed leaves behind and the next one
/// takes over; several processes take turns. A file that may not be written is not replaced either.
[[nodiscard]] bool ReplaceAtomically(std::string const& path, std::string_view content);

/// A lock between processes (and threads) that is held as long as the object lives; the system releases it
/// when the process dies. Waits until the lock is free.
class FileLock {
  public:
    /// Locks on a file of its own, which is made beside the one that it guards and stays there.
    explicit FileLock(std::string const& lockFile);
    FileLock(FileLock const&) = delete;
    FileLock& operator=(FileLock const&) = delete;
    ~FileLock();

    /// False when the lock file could not be made, in a directory that cannot be written to for example.
    [[nodiscard]] bool IsHeld() const noexcept;

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

/// Handles of open files, for callers that want the system's own sharing rules. A handle is opaque.
enum class FileAccess : int { Read, Write, ReadWrite };
enum class FileDisposition : int { OpenExisting, OpenOrCreate };
/// Null on failure. Sharing: a reader shares with readers and writers, a writer with readers only. On POSIX
/// that binds only those who open files by this operation.
[[nodiscard]] void* OpenFile(std::string const& path, FileAccess access, FileDisposition disposition);
bool CloseFile(void* handle);
/// The count holds the number asked for on entry and the number done on return.
bool ReadFile(void* handle, void* target, unsigned long& count);
bool WriteFile(void* handle, void const* source, unsigned long& count);
bool SeekToStart(void* handle);
/// To the start, then cuts everything off.
bool Truncate(void* handle);

/// The name in the short form of 8.3 characters where the system has one, else the name as it is.
[[nodiscard]] std::string ShortPath(std::string const& path);
/// The network name behind a drive ("X:"), none where the system has no drives or this one is no network
/// drive. `connected` asks for the connections of now, else for the remembered ones.
[[nodiscard]] std::optional<std::string> NetworkNameOfDrive(std::string const& drive, bool connected);

}  // namespace platform
