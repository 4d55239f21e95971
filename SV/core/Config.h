// sv::Config: a Windows-style ini file, "[group]" lines with "key=value" lines below them.
//
// Order, comments (";" and "#"), blank lines, unknown groups and keys and the line ends (CR LF or LF) are
// written back as they were read. Names of groups and keys are matched without regard to the case of ASCII
// letters and keep their spelling in the file. Of groups or keys that occur twice only the first counts. A
// new file has LF line ends.
//
// Each write goes to the file at once: under a lock between processes the file is read again, changed and
// replaced atomically. A process that is killed leaves the old file or the new one, and two processes that
// write different keys lose neither. A read sees what others have written. The lock is a file "NAME.lock"
// next to the ini file; it is not removed.
#pragma once

#include "SV/core/String.h"

#include <memory>
#include <string>

namespace sv {

class Config {
  public:
    /// A file that does not exist reads as empty; the first write creates it and its directory.
    explicit Config(String const& pathName);
    Config(Config const&) = delete;
    Config& operator=(Config const&) = delete;
    virtual ~Config();

    /// The path passed to the constructor.
    [[nodiscard]] String const& GetPathName() const noexcept { return pathName_; }

    /// Sets the group to read from and write to. Initially empty: the lines above the first group.
    void SetGroup(String const& group) { group_ = group; }
    [[nodiscard]] String const& GetGroup() const noexcept { return group_; }

    /// Returns the value without surrounding blanks; empty if there is no such key.
    [[nodiscard]] String ReadKey(String const& key);
    /// Replaces the value of the key, or adds the key after the last one of its group, or the group at the
    /// end. Line ends in group, key or value become blanks, and surrounding blanks are dropped. Returns false
    /// if the file could not be written, which then is unchanged, or if a line cannot hold the names: an
    /// empty key, a key that contains "=" or begins with ";", "#" or "[", a group that contains "]".
    bool WriteKey(String const& key, String const& value);
    /// Returns true also if there was no such key.
    bool DeleteKey(String const& key);

    /// The keys of the group in the order and spelling of the file; a name past the end is empty.
    [[nodiscard]] unsigned short GetKeyCount();
    [[nodiscard]] String GetKeyName(unsigned short index);

  private:
    class File;

    String pathName_;
    String group_;
    std::unique_ptr<File> file_;
};

}  // namespace sv
