#include "KVUtils/Source/controls/detail/NumberText.h"

#include "KVUtils/Source/data/GString.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace kv::detail {

namespace {

bool IsOneOf(char character, std::string_view set) noexcept {
    return set.find(character) != std::string_view::npos;
}

/// The hexadecimal number of a text that could only be read up to the "x" of its "0x".
std::optional<double> ReadHexadecimal(std::string_view text, ParsedNumber const& zero) noexcept {
    std::size_t const x = text.size() - zero.rest.size();
    bool const hasPrefix = x > 0 && text[x - 1] == '0' && (x == 1 || !IsOneOf(text[x - 2], "0123456789.")) &&
                           IsOneOf(text[x], "xX");
    std::string_view const digits = zero.rest.substr(1);
    if (!hasPrefix || digits.empty() || !IsOneOf(digits.front(), "0123456789abcdefABCDEF.")) return {};
    double magnitude = 0;
    char const* const end = digits.data() + digits.size();
    auto const result = std::from_chars(digits.data(), end, magnitude, std::chars_format::hex);
    if (result.ec != std::errc() || result.ptr != end) return {};
    return std::copysign(magnitude, zero.value);
}

}  // namespace

std::optional<double> ReadNumber(sv::String text, char separator) {
    if (text.IsEmpty()) return 0;
    std::size_t const found = text.Search(separator);
    if (found != sv::String::NotFound) text[found] = '.';
    ParsedNumber const number = ParseLeadingNumber(text.View());
    if (!number.rest.empty()) return ReadHexadecimal(text.View(), number);
    if (std::isnan(number.value)) return {};
    return number.value;
}

std::optional<double> TypedNumber(std::optional<double> read, double minimum, double maximum) noexcept {
    if (read && !(*read >= minimum && *read <= maximum)) read.reset();
    return read;
}

double LeftNumber(std::optional<double> read, double minimum, double maximum, double restore) noexcept {
    if (!read) return restore;
    if (*read < minimum) return minimum;
    return *read > maximum ? maximum : *read;
}

sv::String ShownNumber(double value, int resolution, char separator) {
    sv::String text = NumberText(value, resolution, separator);
    while (!text.IsEmpty() && text[text.Len() - 1] == '0') text.Erase(text.Len() - 1);
    if (!text.IsEmpty() && text[text.Len() - 1] == separator) text.Erase(text.Len() - 1);
    return text;
}

}  // namespace kv::detail
