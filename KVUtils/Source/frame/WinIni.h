// WinIni: the system's own settings, the file "win.ini" in the directory that the environment names as
// "windir". The library only reads it.
#pragma once

#include "SV/core/String.h"

namespace kv {

/// The value of a key; empty when there is none, or no such file.
[[nodiscard]] sv::String ReadWinIni(sv::String const& group, sv::String const& key);

}  // namespace kv
