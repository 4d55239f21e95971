// Directory: a folder and the files in it.
#pragma once

#include "SV/core/DirEntry.h"

#include <vector>

namespace kv {

class Directory : public sv::DirEntry {
  public:
    explicit Directory(sv::String const& path);

    /// Creates the folder and its parents. Returns whether the folder exists afterwards.
    bool Create();
    /// Returns the sorted names of the files that match a pattern such as "*.txt *.csv", ignoring case; an
    /// empty pattern matches all. Leaves out names that the suite's code page cannot represent. Returns none
    /// for a folder that cannot be read.
    [[nodiscard]] std::vector<sv::String> GetFileNames(sv::String const& pattern = {}) const;
};

namespace detail {

/// Returns whether the name matches one of the patterns, which are separated by blanks: "*" matches any
/// number of characters, "?" one, and "*.*" every name.
[[nodiscard]] bool MatchesPattern(sv::String const& name, sv::String const& patterns);

}  // namespace detail

}  // namespace kv
