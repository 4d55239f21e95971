#include "SV/core/String.h"

#include "Platform/Locale.h"
#include "SV/core/detail/Ascii.h"
#include "SV/core/detail/Encoding.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace sv {

namespace {

// The numbers of the character sets that `Convert` takes.
constexpr int MacRomanSet = 2;
constexpr int FileSystemSet = 3;
constexpr int SuiteSet = 9;

constexpr bool IsCharacterSet(int set) noexcept {
    return set == MacRomanSet || set == FileSystemSet || set == SuiteSet;
}

std::u32string Decode(std::string const& text, int set) {
    if (set == FileSystemSet) return detail::FromUtf8(platform::FromSystemText(text));
    return detail::FromSingleByte(text, set == SuiteSet ? detail::Windows1252 : detail::MacRoman);
}

std::string Encode(std::u32string const& text, int set) {
    if (set == FileSystemSet) return platform::ToSystemText(detail::ToUtf8(text));
    return detail::ToSingleByte(text, set == SuiteSet ? detail::Windows1252 : detail::MacRoman);
}

}  // namespace

String String::FromUtf8(std::string_view text) {
    return detail::ToSingleByte(detail::FromUtf8(text), detail::Windows1252);
}

std::string String::ToUtf8() const {
    return detail::ToUtf8(detail::FromSingleByte(bytes_, detail::Windows1252));
}

std::size_t String::GetTokenCount(char separator) const noexcept {
    if (bytes_.empty()) return 0;
    return static_cast<std::size_t>(std::count(bytes_.begin(), bytes_.end(), separator)) + 1;
}

String String::GetToken(std::size_t number, char separator) const {
    std::string_view rest = bytes_;
    for (; number > 0; --number) {
        std::size_t const end = rest.find(separator);
        if (end == std::string_view::npos) return {};
        rest.remove_prefix(end + 1);
    }
    return rest.substr(0, rest.find(separator));
}

std::size_t String::Search(String const& text, std::size_t from) const noexcept {
    return bytes_.find(text.bytes_, from);
}

std::size_t String::Search(char character, std::size_t from) const noexcept {
    return bytes_.find(character, from);
}

String String::Copy(std::size_t position, std::size_t count) const {
    if (position >= bytes_.size()) return {};
    return bytes_.substr(position, count);
}

String& String::Erase(std::size_t position, std::size_t count) {
    if (position < bytes_.size()) bytes_.erase(position, count);
    return *this;
}

String& String::Insert(String const& text, std::size_t position) {
    bytes_.insert(std::min(position, bytes_.size()), text.bytes_);
    return *this;
}

bool String::IsNumeric() const noexcept {
    return !bytes_.empty() && std::ranges::all_of(bytes_, [](char c) { return c >= '0' && c <= '9'; });
}

long String::ToLong() const noexcept {
    std::string_view rest = bytes_;
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\n\v\f\r"), rest.size()));
    bool const isNegative = rest.starts_with('-');
    if (rest.starts_with('+') && !rest.starts_with("+-")) rest.remove_prefix(1);
    long value = 0;
    auto const result = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return isNegative ? std::numeric_limits<long>::min() : std::numeric_limits<long>::max();
}

String& String::Upper() noexcept {
    std::ranges::transform(bytes_, bytes_.begin(), detail::ToUpper);
    return *this;
}

String& String::Lower() noexcept {
    std::ranges::transform(bytes_, bytes_.begin(), detail::ToLower);
    return *this;
}

bool String::EqualsIgnoreCase(String const& other) const noexcept {
    return std::ranges::equal(bytes_, other.bytes_, {}, detail::ToLower, detail::ToLower);
}

String& String::Convert(int from, int to) {
    if (from == to || !IsCharacterSet(from) || !IsCharacterSet(to)) return *this;
    // The sets agree on ASCII, which most texts are.
    if (!detail::IsAscii(bytes_)) bytes_ = Encode(Decode(bytes_, from), to);
    return *this;
}

String& String::PadLeft(std::size_t width) {
    if (width > bytes_.size()) bytes_.insert(0, width - bytes_.size(), ' ');
    return *this;
}

}  // namespace sv
