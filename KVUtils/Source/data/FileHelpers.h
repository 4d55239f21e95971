// Files opened as handles of the system, with its sharing rules, and other forms of a path. Names are in the
// suite's code page, with either separator.
#pragma once

#include "SV/core/String.h"

namespace kv {

/// How to access the file, and whether to create a missing one. Other processes may read the file at the same
/// time, and write it if this one only reads, as far as the system can enforce that.
enum class KVFileOpenModusTYPE : int {
    Read = 0,
    Write = 1,  // creates a missing file; does not truncate
    WriteExisting = 2,
    ReadWrite = 3,  // creates a missing file; does not truncate
    ReadWriteExisting = 4
};

// Each function returns whether it succeeded, and fails on a null handle. A count is the number of bytes
// requested on entry and the number transferred on return.

/// Opens the file, positioned at its start. Sets the handle to null on failure. The last two arguments are
/// ignored.
[[nodiscard]] bool KVOpenFile(void*& handle, sv::String const& name, KVFileOpenModusTYPE modus, unsigned long,
                              unsigned long);
bool KVCloseFile(void* handle);
/// Succeeds with a count of 0 at the end of the file.
bool KVReadFromFile(void* handle, void* target, unsigned long& count);
bool KVWriteToFile(void* handle, void const* source, unsigned long& count);
/// Returns false for a file that does not exist, and for a directory.
bool KVDeleteFile(sv::String const& name);
/// Moves to the start.
bool KVResetFilePointer(void* handle);
/// Moves to the start and truncates the file to no bytes.
bool KVResetFileSize(void* handle);

/// Replaces the drive of a path by its network name: "\\server\share\file" for "X:\file". Uses the current
/// connections, or the remembered ones if `connected` is false. Returns a path without a drive or on a local
/// drive unchanged, and on POSIX every path.
[[nodiscard]] sv::String KVGetUncName(sv::String const& path, bool connected);

/// Returns the 8.3 form of the path of an existing file; the path unchanged if it has none, and on POSIX.
[[nodiscard]] sv::String KVGetShortPath(sv::String const& path);

}  // namespace kv
