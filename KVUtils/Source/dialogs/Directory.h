// Directory: a folder on the disk, and the files in it.
#pragma once

#include "SV/core/DirEntry.h"

#include <vector>

namespace kv {

class Directory : public sv::DirEntry {
  public:
    explicit Directory(sv::String const& path);

    /// Makes the folder, with those above it. True when it is there afterwards.
    bool Create();
    /// The names of the files that a pattern such as "*.txt *.csv" fits, whatever the case of their letters,
    /// in their order; an empty pattern fits all. A file whose name the suite's code page cannot hold is left
    /// out. None for a folder that cannot be read.
    [[nodiscard]] std::vector<sv::String> GetFileNames(sv::String const& pattern = {}) const;
};

namespace detail {

/// Whether the name has the form of one of the patterns, which blanks divide: "*" stands for any characters
/// and for none, "?" for one, and "*.*" for every name.
[[nodiscard]] bool MatchesPattern(sv::String const& name, sv::String const& patterns);

}  // namespace detail

}  // namespace kv
