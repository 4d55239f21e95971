// sv::detail::IniText: the text of an ini file with an index of its groups and keys. An edit changes one line
// and leaves everything else as it is.
//
// A line is the head of a group ("[name]"), a key ("name=value") or ignored: a comment (";" or "#" first), a
// blank line, a text without "=". Names are trimmed and matched without regard to the case of ASCII letters;
// the group with the empty name holds the lines above the first head. Of groups or keys that occur twice only
// the first counts. A UTF-8 byte order mark at the start of a line is skipped and kept.
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

    /// The whole text.
    [[nodiscard]] std::string const& Text() const noexcept { return text_; }

    /// Returns the value without surrounding blanks. Valid until the next edit.
    [[nodiscard]] std::optional<std::string_view> Value(std::string_view group, std::string_view key) const;
    /// In the order and spelling of the text.
    [[nodiscard]] std::vector<std::string> const& GroupNames() const noexcept { return groupNames_; }
    [[nodiscard]] std::vector<std::string> const& KeyNames(std::string_view group) const;

    /// Whether lines can hold these names. An empty key, one that contains "=" or begins like a head or a
    /// comment would be read as something else, and so would a group that contains "]".
    [[nodiscard]] static bool CanHold(std::string_view group, std::string_view key);

    /// Replaces the value of the key, or adds the key after the last one of its group, or the group at the
    /// end. Line ends in names and value become blanks; a new line ends like its neighbours. Returns false,
    /// and changes nothing, for names that lines cannot hold.
    bool SetValue(std::string_view group, std::string_view key, std::string_view value);
    /// Removes the lines of the key in its group, all of them if it occurs twice. False if there is none.
    bool RemoveKey(std::string_view group, std::string_view key);

  private:
    /// A range of offsets into the text.
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
    /// The offset of the first line.
    [[nodiscard]] std::size_t Start() const noexcept;
    [[nodiscard]] std::string_view View(Range range) const noexcept;
    [[nodiscard]] std::string_view LineEndAt(std::size_t position) const noexcept;

    std::string text_;
    std::vector<std::string> groupNames_;
    std::unordered_map<std::string, Group> groups_;
    std::unordered_map<std::string, Key> keys_;
};

}  // namespace sv::detail
