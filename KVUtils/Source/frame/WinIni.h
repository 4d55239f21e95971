// WinIni: reads the system's settings, the file "win.ini" in the directory that the environment variable
// "windir" names. The library never writes it.
#pragma once

#include "SV/core/String.h"

namespace kv {

/// Returns the value of a key; empty if the key or the file does not exist.
[[nodiscard]] sv::String ReadWinIni(sv::String const& group, sv::String const& key);

}  // namespace kv
