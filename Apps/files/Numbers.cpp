#include "Apps/files/Numbers.h"

#include "Apps/files/Quotes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace files {

namespace {

/// Enough for all digits of a double.
constexpr std::size_t LongestNumber = 64;

template <class Number>
std::string Shortest(Number value) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

char MarkIn(std::string_view text) noexcept {
    auto const mark = text.find_first_of(",.");
    return mark == std::string_view::npos ? NoMark : text[mark];
}

}  // namespace

std::optional<double> ToNumber(std::string_view text, char mark) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    if (text.empty() || text.size() > LongestNumber) return std::nullopt;
    std::array<char, LongestNumber> withPoint{};
    if (mark == ',') {
        if (text.find('.') != std::string_view::npos) return std::nullopt;
        std::ranges::replace_copy(text, withPoint.begin(), ',', '.');
        text = std::string_view(withPoint.data(), text.size());
    }
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::optional<int> ToWhole(std::string_view text) noexcept {
    int value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const isWhole = error == std::errc() && end == text.data() + text.size() && text.front() != '-';
    return isWhole ? std::optional(value) : std::nullopt;
}

std::string ToText(double value) { return Shortest(value); }
std::string ToText(float value) { return Shortest(value); }

std::string ColumnTitle::Text() const {
    return "column " + std::to_string(index + 1) + " (" + Excerpt(name) + ")";
}

std::optional<double> NumberReader::TryRead(std::string_view cell, std::size_t line) {
    std::string_view const text = WithoutQuotes(cell);
    char const mark = MarkIn(text);
    if (mark != NoMark && mark_ != NoMark && mark != mark_) return std::nullopt;
    auto const value = ToNumber(text, mark);
    if (value && mark != NoMark && mark_ == NoMark) {
        mark_ = mark;
        markLine_ = line;
    }
    return value;
}

double NumberReader::Read(std::string_view cell, Location const& location, ColumnTitle const& column) {
    auto const value = TryRead(cell, location.line);
    if (!value) Refuse(cell, location, column);
    return *value;
}

void NumberReader::Refuse(std::string_view cell, Location const& location, ColumnTitle const& column) const {
    std::string_view const text = WithoutQuotes(cell);
    if (text.empty()) Fail(location, "nothing in " + column.Text(), "a number");
    bool const isOtherMark = ToNumber(text, MarkIn(text)).has_value();
    Fail(location, Excerpt(text) + " in " + column.Text(),
         isOtherMark ? std::string(mark_ == ',' ? "a decimal comma" : "a decimal point") + " as in line " +
                           std::to_string(markLine_)
                     : "a finite decimal number");
}

}  // namespace files
