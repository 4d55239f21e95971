#include "Platform/posix/DdeStrings.h"

#include <algorithm>
#include <compare>

namespace platform::detail {

namespace {

constexpr unsigned IndexBits = 20;
constexpr std::uintptr_t IndexMask = (std::uintptr_t{1} << IndexBits) - 1;

constexpr char Folded(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

int CompareIgnoreCase(std::string_view left, std::string_view right) noexcept {
    auto const order = std::lexicographical_compare_three_way(
        left.begin(), left.end(), right.begin(), right.end(), [](char l, char r) {
            return static_cast<unsigned char>(Folded(l)) <=> static_cast<unsigned char>(Folded(r));
        });
    if (std::is_eq(order)) return 0;
    return std::is_lt(order) ? -1 : 1;
}

HSZ StringTable::HandleOf(std::size_t index, std::uint32_t generation) noexcept {
    std::uintptr_t const number = (std::uintptr_t{generation} << IndexBits) | (index + 1);
    return reinterpret_cast<HSZ>(number);  // NOLINT(performance-no-int-to-ptr): a number, never followed
}

std::optional<std::size_t> StringTable::IndexOf(HSZ string) const noexcept {
    auto const number = reinterpret_cast<std::uintptr_t>(string);
    std::size_t const index = (number & IndexMask) - 1;
    if (index >= places_.size()) return {};
    Place const& place = places_[index];
    if (place.users == 0 || place.generation != number >> IndexBits) return {};
    return index;
}

std::optional<std::size_t> StringTable::IndexOf(std::string_view text) const noexcept {
    auto const place = std::ranges::find_if(places_, [text](Place const& p) {
        return p.users > 0 && p.shared && p.text.size() == text.size() &&
               CompareIgnoreCase(p.text, text) == 0;
    });
    if (place == places_.end()) return {};
    return static_cast<std::size_t>(place - places_.begin());
}

HSZ StringTable::Share(std::string_view text) {
    std::optional<std::size_t> const index = IndexOf(text);
    if (!index) return Add(text, true);
    ++places_[*index].users;
    return HandleOf(*index, places_[*index].generation);
}

HSZ StringTable::Own(std::string_view text) { return Add(text, false); }

HSZ StringTable::Add(std::string_view text, bool shared) {
    auto place = std::ranges::find(places_, 0U, &Place::users);
    if (place == places_.end()) {
        if (places_.size() >= IndexMask) return nullptr;
        place = places_.emplace(places_.end());
    }
    place->text = text;
    place->users = 1;
    place->shared = shared;
    ++place->generation;
    return HandleOf(static_cast<std::size_t>(place - places_.begin()), place->generation);
}

HSZ StringTable::Find(std::string_view text) const noexcept {
    std::optional<std::size_t> const index = IndexOf(text);
    return index ? HandleOf(*index, places_[*index].generation) : nullptr;
}

bool StringTable::Keep(HSZ string) noexcept {
    std::optional<std::size_t> const index = IndexOf(string);
    if (index) ++places_[*index].users;
    return index.has_value();
}

bool StringTable::Free(HSZ string) noexcept {
    std::optional<std::size_t> const index = IndexOf(string);
    if (index) --places_[*index].users;
    return index.has_value();
}

std::optional<std::string_view> StringTable::Text(HSZ string) const noexcept {
    std::optional<std::size_t> const index = IndexOf(string);
    if (!index) return {};
    return places_[*index].text;
}

}  // namespace platform::detail
