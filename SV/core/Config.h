// sv::Config: a Windows-style ini file, "[group]" lines with "key=value" lines below them.
//
// What the class does not understand it leaves alone: order, comments (";" and "#"), blank lines and the
// groups and keys of others are written back as they were found, and so are the line ends, CR LF or LF.
// Groups and keys are found without regard to the case of ASCII letters; the spelling in the file stays. Of
// groups and keys that occur twice only the first is seen. A new file gets LF line ends.
//
// Every write goes to the file at once: it is read again under a lock between processes, changed, and
// replaced atomically, so that a process that is killed at any moment leaves the old or the new file whole,
// and two processes that write different keys lose neither. A read sees what others have written since. The
// lock is a file of its own, "NAME.lock" beside the ini file, which stays there.
#pragma once

#include "SV/core/String.h"

#include <memory>
#include <string>

namespace sv {

class Config {
  public:
    /// A file that does not exist reads as empty and is made by the first write, its directory too.
    explicit Config(String const& pathName);
    Config(Config const&) = delete;
    Config& operator=(Config const&) = delete;
    virtual ~Config();

    /// The name given at construction.
    [[nodiscard]] String const& GetPathName() const noexcept { return pathName_; }

    /// The group that keys are read from and written to; empty at first: the lines above the first group.
    void SetGroup(String const& group) { group_ = group; }
    [[nodiscard]] String const& GetGroup() const noexcept { return group_; }

    /// The value, without the blanks around it; empty when there is no such key.
    [[nodiscard]] String ReadKey(String const& key);
    /// Replaces the value of the key, or adds the key behind the last one of its group, or the group at the
    /// end. False when the file could not be written, which then stays as it was, and for names that a line
    /// cannot hold: an empty key, one with "=" in it, one that begins with ";", "#" or "[", a group with "]"
    /// in it. Line ends in group, key or value become blanks, and the blanks around them are dropped.
    bool WriteKey(String const& key, String const& value);
    /// True also when there was no such key.
    bool DeleteKey(String const& key);

    /// The keys of the group in the order of the file, as they are spelled there; a name past the end is
    /// empty.
    [[nodiscard]] unsigned short GetKeyCount();
    [[nodiscard]] String GetKeyName(unsigned short index);

  private:
    class File;

    String pathName_;
    String group_;
    std::unique_ptr<File> file_;
};

}  // namespace sv
