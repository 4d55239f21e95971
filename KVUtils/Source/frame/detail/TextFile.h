// The two passes over a file of translated texts, on its bytes alone: the first checks and counts, the second
// reads.
//
// Both see the file without its comments, "//" to the end of the line with the line end, and "/*" to the next
// "*/", wherever they stand; the first "/" of a comment stays in the text. The characters 0, 10 and 13 end a
// line.
#pragma once

#include "SV/core/String.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kv::detail {

/// The groups of all files that were counted, in their order.
struct TextGroups {
    static constexpr unsigned Most = 200;
    static constexpr std::size_t LongestName = 80;

    std::vector<sv::String> names;
    /// For each group the number of entries before it, and one more, which ends the last group.
    std::vector<unsigned long> starts;
    unsigned long entryCount = 0;
};

enum class TextFault : int { MissingCharacter, CannotOpen, TooManyGroups, General };

/// Is told of a fault: of a missing character which one it is and in which group, by name. Answers whether to
/// go on, which is asked for missing characters only.
using TextFaultHandler = std::function<bool(TextFault fault, char missing, sv::String const& group)>;

/// The first pass: adds the file's groups and entries. False when there was any fault; what was counted
/// before it stays counted. A group past the most that there can be is neither counted nor named, and neither
/// is the end of the last one then. A last entry without a line end is not counted, and leaves the last group
/// without its end.
[[nodiscard]] bool CountTexts(std::string_view file, TextGroups& groups, TextFaultHandler const& report);

/// The second pass: hands over the text of each entry in the order of the file, and that of a last one
/// without a line end.
void ReadTexts(std::string_view file, std::function<void(std::string_view text)> const& store);

}  // namespace kv::detail
