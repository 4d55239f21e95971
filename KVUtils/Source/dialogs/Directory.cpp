#include "KVUtils/Source/dialogs/Directory.h"

#include "Platform/Utf8Path.h"
#include "SV/core/NativePath.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace kv {

namespace {

namespace fs = std::filesystem;

/// Matches one pattern with "*" and "?", both already in lower case.
bool Fits(std::string_view name, std::string_view pattern) {
    std::size_t star = std::string_view::npos;
    std::size_t afterStar = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < name.size();) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            afterStar = i;
        } else if (at < pattern.size() && (pattern[at] == '?' || pattern[at] == name[i])) {
            ++at;
            ++i;
        } else if (star != std::string_view::npos) {
            // Try again with one character more for the last star.
            at = star + 1;
            i = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

std::string NameOf(fs::directory_entry const& entry) { return platform::Utf8Of(entry.path().filename()); }

}  // namespace

Directory::Directory(sv::String const& path) : DirEntry(path) {}

// NOLINTNEXTLINE(readability-make-member-function-const): changes the file system
bool Directory::Create() {
    std::error_code error;
    fs::create_directories(sv::FilePath(GetFull()), error);
    return fs::is_directory(sv::FilePath(GetFull()), error);
}

std::vector<sv::String> Directory::GetFileNames(sv::String const& pattern) const {
    std::vector<sv::String> names;
    std::error_code error;
    fs::directory_iterator entry(sv::FilePath(GetFull()), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        if (!entry->is_regular_file(unknown)) continue;
        std::string const native = NameOf(*entry);
        sv::String const name = sv::FromNativePath(native);
        if (sv::NativePath(name) == native && (pattern.IsEmpty() || detail::MatchesPattern(name, pattern)))
            names.push_back(name);
    }
    std::ranges::sort(names, {}, &sv::String::View);
    return names;
}

namespace detail {

bool MatchesPattern(sv::String const& name, sv::String const& patterns) {
    sv::String lower = name;
    lower.Lower();
    for (std::size_t i = 0; i < patterns.GetTokenCount(' '); ++i) {
        sv::String pattern = patterns.GetToken(i, ' ');
        pattern.Lower();
        if (pattern == "*.*" || (!pattern.IsEmpty() && Fits(lower.View(), pattern.View()))) return true;
    }
    return false;
}

}  // namespace detail

}  // namespace kv
