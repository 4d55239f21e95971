#include "KVUtils/Source/frame/WinIni.h"

#include "SV/core/Config.h"
#include "SV/core/DirEntry.h"

#include <cstdlib>

namespace kv {

sv::String ReadWinIni(sv::String const& group, sv::String const& key) {
    char const* const directory = std::getenv("windir");
    if (directory == nullptr) return {};
    sv::Config winIni((sv::DirEntry(sv::String(directory).Convert(3, 9)) + "win.ini").GetFull());
    winIni.SetGroup(group);
    return winIni.ReadKey(key);
}

}  // namespace kv
