// Files by the handles of the system, with its rules of sharing, and paths in other forms. All names are in
// the suite's code page and take either separator.
#pragma once

#include "SV/core/String.h"

namespace kv {

/// What is done with the file, and what becomes of a missing one. Others may read along with a reader and
/// with a writer, but write along with a reader only, as far as the system can enforce that.
enum class KVFileOpenModusTYPE : int {
    Read = 0,
    Write = 1,  // makes a missing file; what is there is kept
    WriteExisting = 2,
    ReadWrite = 3,  // makes a missing file; what is there is kept
    ReadWriteExisting = 4
};

// Each answers whether it succeeded, and fails on a null handle. Counts hold the number of bytes asked for on
// entry and the number done on return.

/// Opens at the start of the file. The handle is null on failure. The two numbers have no meaning: callers
/// pass them, and no system call takes them.
[[nodiscard]] bool KVOpenFile(void*& handle, sv::String const& name, KVFileOpenModusTYPE modus, unsigned long,
                              unsigned long);
bool KVCloseFile(void* handle);
/// At the end of the file it succeeds with a count of 0.
bool KVReadFromFile(void* handle, void* target, unsigned long& count);
bool KVWriteToFile(void* handle, void const* source, unsigned long& count);
/// False for a file that is not there, and for a directory.
bool KVDeleteFile(sv::String const& name);
/// Back to the start.
bool KVResetFilePointer(void* handle);
/// Back to the start, and cuts everything off.
bool KVResetFileSize(void* handle);

/// The path with the network's name in place of a drive ("\\server\share\file" for "X:\file"): that of a
/// connection of now, or of one that is remembered when `connected` is false. A path without a drive stays as
/// it is, and so does one on a local drive. On POSIX no path has a drive, so every one stays.
[[nodiscard]] sv::String KVGetUncName(sv::String const& path, bool connected);

/// The path in the old form of eight characters and three, of a file that is there and has one; else as it
/// is, as always on POSIX.
[[nodiscard]] sv::String KVGetShortPath(sv::String const& path);

}  // namespace kv
