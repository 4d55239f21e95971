// Files: file operations that the standard library lacks. Names are UTF-8 on every system; the floors above
// convert them from the suite's code page.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Identifies the state of a file. Two changes within one step of the file system's clock, some milliseconds,
/// can yield the same identity.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds since 1970, UTC

    friend bool operator==(FileIdentity const&, FileIdentity const&) = default;
};

/// Returns the file's identity; none if there is no such file.
[[nodiscard]] std::optional<FileIdentity> Identify(std::string const& path);

/// Returns the final target of a symbolic link; any other name unchanged.
[[nodiscard]] std::string FollowLinks(std::string const& path);

/// Returns the whole content; none if the file cannot be read.
[[nodiscard]] std::optional<std::string> ReadWhole(std::string const& path);

/// Replaces the content of a file, or creates the file. At any moment the name refers to the complete old or
/// the complete new content, even after a system crash. Keeps the permissions of the file and follows a
/// symbolic link. Does not replace a file that is not writable. Returns false on failure, with the old file
/// unchanged.
///
/// The new content is written to "PATH.replacing" first, which a killed process leaves behind and the next
/// one reuses. Concurrent processes take turns.
[[nodiscard]] bool ReplaceAtomically(std::string const& path, std::string_view content);

/// A lock between processes and threads, held for the lifetime of the object; the system releases it when the
/// process ends. The constructor waits until the lock is free.
class FileLock {
  public:
    /// Locks a file of its own, which is created beside the guarded one and remains there.
    explicit FileLock(std::string const& lockFile);
    FileLock(FileLock const&) = delete;
    FileLock& operator=(FileLock const&) = delete;
    ~FileLock();

    /// Returns false if the lock file could not be created, for example in a directory that is not writable.
    [[nodiscard]] bool IsHeld() const noexcept;

  private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

/// Opaque handles of open files, for callers that need the system's sharing rules.
enum class FileAccess : int { Read, Write, ReadWrite };
enum class FileDisposition : int { OpenExisting, OpenOrCreate };
/// Opens a file; returns null on failure. Sharing: a reader shares with readers and writers, a writer with
/// readers only. On POSIX this binds only files that are opened by this operation.
[[nodiscard]] void* OpenFile(std::string const& path, FileAccess access, FileDisposition disposition);
bool CloseFile(void* handle);
/// `count` is the number of bytes requested on entry and the number transferred on return.
bool ReadFile(void* handle, void* target, unsigned long& count);
bool WriteFile(void* handle, void const* source, unsigned long& count);
bool SeekToStart(void* handle);
/// Moves to the start and discards the whole content.
bool Truncate(void* handle);

/// Returns the short form of the name (8.3 characters) if the system has one, else the name unchanged.
[[nodiscard]] std::string ShortPath(std::string const& path);
/// Returns the network name of a drive ("X:"); none if the system has no drives or this one is not a network
/// drive. `connected` searches the current connections, else the remembered ones.
[[nodiscard]] std::optional<std::string> NetworkNameOfDrive(std::string const& drive, bool connected);

}  // namespace platform
