// sv::detail::IniText: the text of an ini file, with an index of its groups and keys, and edits that touch
// one line each. What it does not understand stays as it is.
//
// A line is a group's head ("[name]"), a key ("name=value") or nothing that concerns this class: a comment
// (";" or "#" first), a blank line, a text without "=". Names are without the blanks around them and are
// found without regard to the case of ASCII letters; the group with the empty name is the lines above the
// first head. Of groups and keys that occur twice only the first is seen. Marks of UTF-8 (a byte order mark)
// in front of a line are skipped and kept.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sv::detail {

class IniText {
  public:
    explicit IniText(std::string text = {});

    /// All of it, to be written as it is.
    [[nodiscard]] std::string const& Text() const noexcept { return text_; }

    /// Without the blanks around it. Valid until the next edit.
    [[nodiscard]] std::optional<std::string_view> Value(std::string_view group, std::string_view key) const;
    /// In the order of the text and as they are spelled there.
    [[nodiscard]] std::vector<std::string> const& GroupNames() const noexcept { return groupNames_; }
    [[nodiscard]] std::vector<std::string> const& KeyNames(std::string_view group) const;

    /// Whether lines can hold these names: a key that is empty, holds "=" or begins like a head or a comment
    /// would be read as something else, and so would a group with "]" in it.
    [[nodiscard]] static bool CanHold(std::string_view group, std::string_view key);

    /// Replaces the value of the key, or adds the key behind the last one of its group, or the group at the
    /// end. Line ends in a name or the value become blanks; new lines end like their neighbours. False, with
    /// nothing changed, for names that cannot be held.
    bool SetValue(std::string_view group, std::string_view key, std::string_view value);
    /// Removes the lines of the key in its group, all of them where it occurs twice. False when there is
    /// none.
    bool RemoveKey(std::string_view group, std::string_view key);

  private:
    /// From one offset of the text to another.
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    struct Key {
        Range value;
        std::vector<Range> lines;
    };
    struct Group {
        std::size_t keysEnd = 0;  // where the next key goes
        std::vector<std::string> keyNames;
    };

    void Index();
    void IndexKey(Group& owner, std::string_view foldedGroup, Range line);
    /// Where the first line begins.
    [[nodiscard]] std::size_t Start() const noexcept;
    [[nodiscard]] std::string_view View(Range range) const noexcept;
    [[nodiscard]] std::string_view LineEndAt(std::size_t position) const noexcept;

    std::string text_;
    std::vector<std::string> groupNames_;
    std::unordered_map<std::string, Group> groups_;
    std::unordered_map<std::string, Key> keys_;
};

}  // namespace sv::detail
