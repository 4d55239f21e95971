// What a person is asked when a file or a folder is to be chosen, and the answer. Paths are as `NativePath`
// takes them.
#pragma once

#include "SV/core/String.h"

#include <vector>

namespace sv {

enum class FilePurpose : int {
    Open,   // a file that is there
    Save,   // a name, of a file that is there or not
    Folder  // that is there
};

/// Which files are shown.
struct FileFilter {
    String name;
    String pattern;  // "*.txt *.csv"
};

struct FileQuestion {
    FilePurpose purpose = FilePurpose::Open;
    String title{};
    /// A folder to begin in, or the whole name of a file to begin with; empty for the folder of the program.
    String start{};
    /// None for all files.
    std::vector<FileFilter> filters{};
};

struct FileAnswer {
    String path;
    std::size_t filter = 0;  // that was in use, counted from 0
};

}  // namespace sv
