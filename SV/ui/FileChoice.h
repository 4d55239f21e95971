// The question and answer of choosing a file or a folder. Paths are as `NativePath` takes them.
#pragma once

#include "SV/core/String.h"

#include <vector>

namespace sv {

enum class FilePurpose : int {
    Open,   // an existing file
    Save,   // a file name, existing or not
    Folder  // an existing folder
};

/// The files to show.
struct FileFilter {
    String name;
    String pattern;  // "*.txt *.csv"
};

struct FileQuestion {
    FilePurpose purpose = FilePurpose::Open;
    String title{};
    /// The folder to start in, or the path of a file to start with; empty for the program's own folder.
    String start{};
    /// Empty for all files.
    std::vector<FileFilter> filters{};
};

struct FileAnswer {
    String path;
    std::size_t filter = 0;  // the filter in use, counted from 0
};

}  // namespace sv
