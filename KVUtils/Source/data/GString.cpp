#include "KVUtils/Source/data/GString.h"

#include "SV/core/International.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace kv {

namespace {

constexpr char Digits[] = "0123456789";
constexpr int MaxDigits = 36;
constexpr char FilePoint = '.';

// Intentional: multiply in long double by 0.1 as a double, which is slightly above a tenth. So each of the
// first 20,000 halves rounds away from zero; a more exact tenth would print 42.5 as "42".
constexpr long double Tenth = 0.1;

/// Rounds at the last decimal. The digits after it are not cleared; do not print them.
long double RoundedAt(long double value, int decimals) noexcept {
    for (int i = 0; i < decimals; ++i) value *= 10;
    value += 0.5L;
    for (int i = 0; i < decimals; ++i) value *= Tenth;
    return value;
}

/// Removes and returns the first digit after the point.
char NextDigit(long double& fraction) noexcept {
    fraction *= 10;
    int const digit = std::clamp(static_cast<int>(fraction), 0, 9);
    fraction -= digit;
    return Digits[digit];
}

/// Returns whether an unsigned number out of the range of double is too small, not too large.
bool IsTiny(std::string_view number) noexcept {
    std::size_t const exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) return number.substr(exponent + 1).starts_with('-');
    return number.find_first_not_of('0') == number.find('.');
}

sv::String Padded(sv::String text, int width) {
    if (width > 0) text.PadLeft(static_cast<std::size_t>(width));
    return text;
}

}  // namespace

namespace detail {

sv::String NumberText(double value, int decimals, char point) {
    sv::String text;
    if (value < 0) text += '-';
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return text + "inf";
    // Keeps 10^decimals finite; further decimals of a double are 0.
    decimals = std::clamp(decimals, 0, std::numeric_limits<double>::max_exponent10);

    long double rest = RoundedAt(std::fabs(static_cast<long double>(value)), decimals);
    if (rest < 1) {
        text += '0';
    } else {
        int integerDigits = 0;
        for (; rest >= 1; rest *= Tenth) ++integerDigits;
        integerDigits = std::min(integerDigits, MaxDigits - decimals);
        for (int i = 0; i < integerDigits; ++i) text += NextDigit(rest);
    }
    if (decimals > 0) text += point;
    for (int i = 0; i < decimals; ++i) text += NextDigit(rest);
    return text;
}

sv::String NumberText(double value, int decimals, char point, uchar stripZeros, uchar plusSign) {
    sv::String text = NumberText(value, decimals, point);
    if (stripZeros != 0 && decimals >= 1) {
        auto const eraseTrailing = [&text](char character) {
            while (!text.IsEmpty() && text[text.Len() - 1] == character) text.Erase(text.Len() - 1);
        };
        eraseTrailing('0');
        eraseTrailing(point);
    }
    return plusSign != 0 && value >= 0 ? sv::String("+") + text : text;
}

ParsedNumber ParseLeadingNumber(std::string_view text) noexcept {
    std::string_view const whole = text;
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    if (text.starts_with('-')) return {0, whole};  // std::from_chars would take a second sign

    double magnitude = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    if (result.ptr == text.data()) return {0, whole};
    if (result.ec == std::errc::result_out_of_range) {
        magnitude = IsTiny({text.data(), result.ptr}) ? 0.0 : std::numeric_limits<double>::infinity();
    }
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return {isNegative ? -magnitude : magnitude, text};
}

}  // namespace detail

using detail::NumberText;

GString::GString(double value, int decimals) {
    Common(value, decimals, sv::International::GetNumDecimalSep());
}

GString::GString(double value, int width, int decimals)
    : GString(value, width, decimals, sv::International::GetNumDecimalSep()) {}

GString::GString(double value, int decimals, char point) { Common(value, decimals, point); }

GString::GString(double value, int width, int decimals, char point)
    : String(Padded(NumberText(value, decimals, point), width)) {}

GString::GString(double value, int decimals, uchar stripZeros, uchar plusSign)
    : String(NumberText(value, decimals, sv::International::GetNumDecimalSep(), stripZeros, plusSign)) {}

GString::GString(double value, int width, int decimals, uchar stripZeros, uchar plusSign)
    : String(Padded(GString(value, decimals, stripZeros, plusSign), width)) {}

GString::GString(int value, int width) : String(Padded(String(value), width)) {}

uchar GString::MatchPattern(sv::String const& pattern) const {
    std::size_t position = 0;
    for (std::size_t i = 0; i < pattern.GetTokenCount('*'); ++i) {
        sv::String const token = pattern.GetToken(i, '*');
        if (token.IsEmpty()) continue;
        std::size_t const found = Search(token, position);
        if (found == NotFound) return 0;
        position = found + token.Len();
    }
    return 1;
}

GString::operator double() {
    for (char const separator : {sv::International::GetNumDecimalSep(), ','}) {
        std::size_t const found = Search(separator);
        if (found != NotFound) (*this)[found] = '.';
    }
    return detail::ParseLeadingNumber(View()).value;
}

void GString::Common(double value, int decimals, char point) { *this += NumberText(value, decimals, point); }

fString::fString(double value, int decimals) : String(NumberText(value, decimals, FilePoint)) {}

fString::fString(double value, int width, int decimals)
    : String(Padded(NumberText(value, decimals, FilePoint), width)) {}

fString::fString(double value, int decimals, uchar stripZeros, uchar plusSign)
    : String(NumberText(value, decimals, FilePoint, stripZeros, plusSign)) {}

fString::fString(double value, int width, int decimals, uchar stripZeros, uchar plusSign)
    : String(Padded(NumberText(value, decimals, FilePoint, stripZeros, plusSign), width)) {}

fString::operator double() const { return detail::ParseLeadingNumber(View()).value; }

}  // namespace kv
