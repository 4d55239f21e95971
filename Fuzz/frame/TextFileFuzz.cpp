// Runs the two passes over a text file on any bytes: they terminate, agree on the entries and keep their
// limits.
#include "KVUtils/Source/frame/detail/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using kv::detail::TextFault;
using kv::detail::TextGroups;

void Require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    // The first byte is the number of the question that is answered with a stop.
    std::string_view const file(reinterpret_cast<char const*>(data), size);
    unsigned const stopAt = size == 0 ? 0 : data[0];

    TextGroups groups;
    unsigned questions = 0;
    unsigned faults = 0;
    bool const isFaultless =
        kv::detail::CountTexts(file, groups, [&](TextFault fault, char missing, sv::String const& group) {
            ++faults;
            Require(group.Len() <= TextGroups::MaxNameLength);
            Require(fault == TextFault::TooManyGroups || missing == ']' || missing == '}');
            return fault == TextFault::TooManyGroups || questions++ != stopAt;
        });
    Require(isFaultless == (faults == 0));
    Require(groups.names.size() <= TextGroups::MaxCount);
    Require(groups.starts.size() <= groups.names.size() + 1 && groups.starts.size() >= groups.names.size());
    Require(std::is_sorted(groups.starts.begin(), groups.starts.end()));
    Require(groups.starts.empty() || groups.starts.back() <= groups.entryCount);
    for (sv::String const& name : groups.names) Require(name.Len() <= TextGroups::MaxNameLength);

    unsigned long texts = 0;
    std::size_t length = 0;
    kv::detail::ReadTexts(file, [&](std::string_view text) {
        ++texts;
        length += text.size();
        Require(text.find_first_of(std::string_view("\n\r\0", 3)) == std::string_view::npos);
    });
    Require(length <= size);
    // In a faultless file only a last entry without a line end is read in addition to those counted.
    if (isFaultless) Require(texts == groups.entryCount || texts == groups.entryCount + 1);
    return 0;
}
