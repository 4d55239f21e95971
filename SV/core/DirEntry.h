// sv::DirEntry: the name of a file or directory, taken apart and put together. Both "/" and "\" divide on
// every system, and a leading "X:" is a device; what is put together uses the system's own separator. Only
// `Exists` looks at the disk.
#pragma once

#include "SV/core/String.h"

namespace sv {

/// How a path is written. The library uses only the first.
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
    /// What stands behind the last separator.
    [[nodiscard]] String GetName() const;
    /// What stands behind the last "." of the name; empty without one.
    [[nodiscard]] String GetExtension() const;
    /// The directory, without the separator at its end unless it is a root; empty when none is named.
    [[nodiscard]] DirEntry GetPath() const;
    /// "X:", or empty.
    [[nodiscard]] DirEntry GetDevice() const;

    /// Takes extension and "." off the name, and returns the extension.
    String CutExtension();
    /// Puts another name, or another extension (without its "."), in place of this one.
    void ChangeName(String const& name);
    void ChangeExtension(String const& extension);

    /// Whether the file or directory is there.
    [[nodiscard]] bool Exists() const;

    /// The entry below this directory. Separators in front of `below` are dropped, an empty one leaves this
    /// directory, and one with a device stands alone.
    [[nodiscard]] DirEntry operator+(DirEntry const& below) const;
    [[nodiscard]] DirEntry operator+(String const& below) const;

    friend bool operator==(DirEntry const& a, DirEntry const& b) { return a.full_ == b.full_; }

  private:
    String full_;
};

/// What the disk says of an entry.
class FileStat {
  public:
    explicit FileStat(DirEntry const& entry);

    /// In bytes; 0 when there is no such file, and for a directory.
    [[nodiscard]] unsigned long long GetSize() const noexcept { return size_; }
    /// Neither where nothing is.
    [[nodiscard]] bool IsFile() const noexcept { return isFile_; }
    [[nodiscard]] bool IsDirectory() const noexcept { return isDirectory_; }

  private:
    unsigned long long size_ = 0;
    bool isFile_ = false;
    bool isDirectory_ = false;
};

}  // namespace sv
