// Writes any group, key and value into any ini file: one key changes and nothing else does.
//
// Input: group, key and value, each ended by a zero byte, then the file.
#include "SV/core/detail/IniText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>

using sv::detail::IniText;

namespace {

void Require(bool isKept) {
    if (!isKept) std::abort();
}

std::string_view TakeField(std::string_view& input) {
    std::string_view const field = input.substr(0, input.find('\0'));
    input.remove_prefix(std::min(field.size() + 1, input.size()));
    return field;
}

using Values = std::map<std::pair<std::string, std::string>, std::string>;

/// Returns all keys and values of the text; every listed key must have a value.
Values ValuesOf(IniText const& text) {
    Values values;
    for (std::string const& group : text.GroupNames()) {
        for (std::string const& key : text.KeyNames(group)) {
            auto const value = text.Value(group, key);
            Require(value.has_value());
            Require(values.emplace(std::pair(group, key), *value).second);
        }
    }
    return values;
}

/// Returns the values except that of one key, which is identified by a text that contains nothing else. Names
/// that cannot be stored identify no key.
Values Without(Values values, std::string_view group, std::string_view key) {
    IniText target;
    target.SetValue(group, key, "");
    std::erase_if(values, [&](Values::value_type const& entry) {
        return target.Value(entry.first.first, entry.first.second).has_value();
    });
    return values;
}

void CheckWriting(IniText const& before, std::string_view group, std::string_view key,
                  std::string_view value) {
    IniText text = before;
    if (!text.SetValue(group, key, value)) {
        Require(text.Text() == before.Text() && !IniText::CanHold(group, key));
        return;
    }
    IniText const again{std::string(text.Text())};
    IniText expected;
    expected.SetValue(group, key, value);
    Require(again.Value(group, key).has_value() && again.Value(group, key) == expected.Value(group, key));
    Require(Without(ValuesOf(again), group, key) == Without(ValuesOf(before), group, key));
    Require(ValuesOf(text) == ValuesOf(again));
    text.SetValue(group, key, value);
    Require(text.Text() == again.Text());
}

void CheckRemoving(IniText const& before, std::string_view group, std::string_view key) {
    IniText text = before;
    bool const isThere = before.Value(group, key).has_value();
    Require(text.RemoveKey(group, key) == isThere);
    Require(!text.Value(group, key).has_value());
    Require(ValuesOf(text) == Without(ValuesOf(before), group, key));
    Require(isThere || text.Text() == before.Text());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const bytes(data, data + size);
    std::string_view input = bytes;
    std::string_view const group = TakeField(input);
    std::string_view const key = TakeField(input);
    std::string_view const value = TakeField(input);
    IniText const before{std::string(input)};
    Require(before.Text() == input);
    CheckWriting(before, group, key, value);
    CheckRemoving(before, group, key);
    return 0;
}
