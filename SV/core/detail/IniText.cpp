#include "SV/core/detail/IniText.h"

#include "SV/core/detail/Ascii.h"

#include <algorithm>
#include <utility>

namespace sv::detail {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\n";

std::string_view TrimRight(std::string_view text) noexcept {
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

/// Removes leading blanks and UTF-8 byte order marks.
std::string_view TrimLeft(std::string_view text) noexcept {
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
        if (!text.starts_with(Utf8Mark)) return text;
        text.remove_prefix(Utf8Mark.size());
    }
}

/// Returns a name as it is written: on one line, without surrounding blanks.
std::string CleanName(std::string_view name) {
    std::string clean(TrimLeft(TrimRight(name)));
    std::ranges::replace_if(
        clean, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return clean;
}

std::string CleanValue(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(Blanks), value.size()));
    std::string clean(TrimRight(value));
    std::ranges::replace_if(
        clean, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return clean;
}

/// Returns a name as it is looked up.
std::string Fold(std::string_view name) {
    std::string folded = CleanName(name);
    std::ranges::transform(folded, folded.begin(), ToLower);
    return folded;
}

/// Unique, since no name contains a line end.
std::string Identifier(std::string_view foldedGroup, std::string_view key) {
    return std::string(foldedGroup).append(1, '\n').append(Fold(key));
}

bool IsComment(std::string_view trimmed) noexcept {
    return trimmed.starts_with(';') || trimmed.starts_with('#');
}

/// Returns the name in a group's head; none for any other line.
std::optional<std::string_view> HeadName(std::string_view trimmed) noexcept {
    std::size_t const end = trimmed.find(']');
    if (!trimmed.starts_with('[') || end == std::string_view::npos) return std::nullopt;
    return trimmed.substr(1, end - 1);
}

}  // namespace

IniText::IniText(std::string text) : text_(std::move(text)) { Index(); }

std::string_view IniText::View(Range range) const noexcept {
    return std::string_view(text_).substr(range.begin, range.end - range.begin);
}

std::size_t IniText::Start() const noexcept { return text_.starts_with(Utf8Mark) ? Utf8Mark.size() : 0; }

void IniText::Index() {
    groupNames_.assign(1, {});
    keys_.clear();
    groups_.clear();
    std::string group;
    Group* owner = &groups_[group];
    owner->keysEnd = Start();
    std::size_t end = 0;
    for (std::size_t begin = Start(); begin < text_.size(); begin = end) {
        end = std::min(text_.find('\n', begin), text_.size() - 1) + 1;
        std::string_view const line = TrimRight(TrimLeft(View({begin, end})));
        if (auto const head = HeadName(line)) {
            group = Fold(*head);
            auto const [place, isFirst] = groups_.try_emplace(group, Group{end, {}});
            owner = isFirst ? &place->second : nullptr;
            if (isFirst) groupNames_.push_back(CleanName(*head));
        } else if (owner != nullptr && !IsComment(line) && !line.starts_with('[')) {
            IndexKey(*owner, group, {begin, end});
        }
    }
}

void IniText::IndexKey(Group& owner, std::string_view foldedGroup, Range line) {
    std::size_t const equals = View(line).find('=');
    if (equals == std::string_view::npos) return;
    std::string name = CleanName(View(line).substr(0, equals));
    if (name.empty()) return;
    Key& key = keys_[Identifier(foldedGroup, name)];
    if (key.lines.empty()) {
        // The blanks after "=" stay when the value is replaced.
        std::size_t const first = text_.find_first_not_of(" \t", line.begin + equals + 1);
        std::size_t const begin = std::min(first, line.end);
        key.value = {begin, std::max(begin, text_.find_last_not_of(Blanks, line.end - 1) + 1)};
        owner.keyNames.push_back(std::move(name));
    }
    key.lines.push_back(line);
    owner.keysEnd = line.end;
}

std::optional<std::string_view> IniText::Value(std::string_view group, std::string_view key) const {
    auto const found = keys_.find(Identifier(Fold(group), key));
    if (found == keys_.end()) return std::nullopt;
    std::string_view value = TrimRight(View(found->second.value));
    value.remove_prefix(std::min(value.find_first_not_of(Blanks), value.size()));
    return value;
}

std::vector<std::string> const& IniText::KeyNames(std::string_view group) const {
    static std::vector<std::string> const none;
    auto const found = groups_.find(Fold(group));
    return found == groups_.end() ? none : found->second.keyNames;
}

bool IniText::CanHold(std::string_view group, std::string_view key) {
    std::string_view const name = TrimLeft(TrimRight(key));
    bool const isKey = !name.empty() && name.find('=') == std::string_view::npos;
    return isKey && !IsComment(name) && !name.starts_with('[') && group.find(']') == std::string_view::npos;
}

bool IniText::SetValue(std::string_view group, std::string_view key, std::string_view value) {
    if (!CanHold(group, key)) return false;
    std::string const foldedGroup = Fold(group);
    if (auto const found = keys_.find(Identifier(foldedGroup, key)); found != keys_.end()) {
        Range const old = found->second.value;
        text_.replace(old.begin, old.end - old.begin, CleanValue(value));
    } else {
        auto const owner = groups_.find(foldedGroup);
        std::size_t const at = owner == groups_.end() ? text_.size() : owner->second.keysEnd;
        std::string const lineEnd(LineEndAt(at));
        std::string lines;
        if (at > Start() && text_[at - 1] != '\n') lines += lineEnd;
        if (owner == groups_.end()) lines += '[' + CleanName(group) + ']' + lineEnd;
        lines += CleanName(key) + '=' + CleanValue(value) + lineEnd;
        text_.insert(at, lines);
    }
    Index();
    return true;
}

bool IniText::RemoveKey(std::string_view group, std::string_view key) {
    auto const found = keys_.find(Identifier(Fold(group), key));
    if (found == keys_.end()) return false;
    std::vector<Range> const& lines = found->second.lines;
    std::for_each(lines.rbegin(), lines.rend(),
                  [&](Range line) { text_.erase(line.begin, line.end - line.begin); });
    Index();
    return true;
}

std::string_view IniText::LineEndAt(std::size_t position) const noexcept {
    std::size_t end = position == 0 ? std::string::npos : text_.rfind('\n', position - 1);
    if (end == std::string::npos) end = text_.find('\n');
    bool const isCrLf = end != std::string::npos && end > 0 && text_[end - 1] == '\r';
    return isCrLf ? "\r\n" : "\n";
}

}  // namespace sv::detail
