// The two passes over the bytes of a text file: the first checks and counts, the second reads.
//
// Both skip comments anywhere: "//" up to and including the line end, and "/*" up to the next "*/". The first
// "/" of a comment stays in the text. The characters 0, 10 and 13 end a line.
#pragma once

#include "SV/core/String.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kv::detail {

/// The groups of all files that were counted, in file order.
struct TextGroups {
    static constexpr unsigned MaxCount = 200;
    static constexpr std::size_t MaxNameLength = 80;

    std::vector<sv::String> names;
    /// The number of entries before each group, and one element more, the end of the last group.
    std::vector<unsigned long> starts;
    unsigned long entryCount = 0;
};

enum class TextFault : int { MissingCharacter, CannotOpen, TooManyGroups, General };

/// Receives an error; for a missing character, also the character and the name of the group. Returns whether
/// to continue, which only counts for a missing character.
using TextFaultHandler = std::function<bool(TextFault fault, char missing, sv::String const& group)>;

/// The first pass: adds the groups and entries of the file. Returns false after any error; what was counted
/// before it stays counted. A group beyond the maximum is neither counted nor named, and the end of the last
/// one is not stored then. A last entry without a line end is not counted, and leaves the last group without
/// an end.
[[nodiscard]] bool CountTexts(std::string_view file, TextGroups& groups, TextFaultHandler const& report);

/// The second pass: passes the text of each entry to `store` in file order, that of a last entry without a
/// line end included.
void ReadTexts(std::string_view file, std::function<void(std::string_view text)> const& store);

}  // namespace kv::detail
