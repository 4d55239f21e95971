// sv::DirEntry: splits and joins names of files and directories. On every system both "/" and "\" separate
// and a leading "X:" is a device; joining uses the system's own separator. Only `Exists` accesses the disk.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// How a path is written; the library uses `System` only.
enum class PathStyle : int { System = 0 };

class DirEntry {
  public:
    DirEntry() = default;
    explicit DirEntry(String path, PathStyle style = PathStyle::System);
    virtual ~DirEntry() = default;
    DirEntry(DirEntry const&) = default;
    DirEntry& operator=(DirEntry const&) = default;

    /// The whole name.
    [[nodiscard]] String const& GetFull() const noexcept { return full_; }
    /// The part after the last separator.
    [[nodiscard]] String GetName() const;
    /// The part after the last "." of the name; empty if there is none.
    [[nodiscard]] String GetExtension() const;
    /// The directory, without a trailing separator unless it is a root; empty if the path names none.
    [[nodiscard]] DirEntry GetPath() const;
    /// "X:", or empty if the path names no device.
    [[nodiscard]] DirEntry GetDevice() const;

    /// Removes the extension and its "." from the name and returns the extension.
    String CutExtension();
    /// Replaces the name, or the extension (given without its ".").
    void ChangeName(String const& name);
    void ChangeExtension(String const& extension);

    /// Whether the file or directory exists.
    [[nodiscard]] bool Exists() const;

    /// Returns the entry below this directory. Leading separators of `below` are dropped; an empty `below`
    /// returns this directory, and one with a device returns `below` itself.
    [[nodiscard]] DirEntry operator+(DirEntry const& below) const;
    [[nodiscard]] DirEntry operator+(String const& below) const;

    friend bool operator==(DirEntry const& a, DirEntry const& b) { return a.full_ == b.full_; }

  private:
    String full_;
};

/// The kind and size of an entry on the disk.
class FileStat {
  public:
    explicit FileStat(DirEntry const& entry);

    /// In bytes; 0 if there is no such file, and for a directory.
    [[nodiscard]] unsigned long long GetSize() const noexcept { return size_; }
    /// Both are false if the entry does not exist.
    [[nodiscard]] bool IsFile() const noexcept { return isFile_; }
    [[nodiscard]] bool IsDirectory() const noexcept { return isDirectory_; }

  private:
    unsigned long long size_ = 0;
    bool isFile_ = false;
    bool isDirectory_ = false;
};

}  // namespace sv
