// GString and fString: numbers as text in a fixed form, with a rounding of their own that is the same on
// every machine. GString is the form for people, with the decimal separator of their locale; fString the one
// for files and messages, always with ".".
//
// Common to all forms: rounding is half away from zero at the last decimal; no decimals means no point; the
// sign is decided before rounding, so that -0.004 with two decimals is "-0.00", while minus zero has none. At
// most 36 digits are written, of a larger number the leading ones. The digits come from multiplications with
// a tenth that is a hair too large: exact up to 1e14, with a value some units of its last bit below a half
// rounded up. Infinity and not-a-number are written "inf" and "nan", and a negative count of decimals counts
// as 0.
#pragma once

#include "SV/core/String.h"

#include <string_view>

namespace kv {

using uchar = unsigned char;

namespace detail {

/// The number as described above, with this character as the point.
[[nodiscard]] sv::String NumberText(double value, int decimals, char point);
/// The same with a "+" in front of values of 0 and above, if `plusSign` is not 0; and without trailing zeros
/// after the point, nor a point that ends the text, if `stripZeros` is not 0.
[[nodiscard]] sv::String NumberText(double value, int decimals, char point, uchar stripZeros, uchar plusSign);

/// The number at the start of a text, and the text behind it.
struct ParsedNumber {
    double value;
    std::string_view rest;
};
/// Reads a number with ".", after white space; when there is none, 0 and the whole text. Knows no locale.
[[nodiscard]] ParsedNumber ParseLeadingNumber(std::string_view text) noexcept;

}  // namespace detail

class GString : public sv::String {
  public:
    explicit GString(sv::String const& text) : String(text) {}

    GString(double value, int decimals);
    /// With blanks in front until the length reaches `width`, here and below.
    GString(double value, int width, int decimals);
    GString(double value, int decimals, char point);
    GString(double value, int width, int decimals, char point);
    GString(double value, int decimals, uchar stripZeros, uchar plusSign);
    GString(double value, int width, int decimals, uchar stripZeros, uchar plusSign);
    GString(int value, int width);

    /// 1 if the parts of the pattern between its "*" occur in this order, else 0. The first need not stand at
    /// the start nor the last at the end, so "a" matches every text with an "a". Case counts.
    [[nodiscard]] uchar MatchPattern(sv::String const& pattern) const;

    /// The number that the text begins with, the point being the locale's separator or a comma; 0 if there is
    /// none. Explicit, so that no text slips into arithmetic. Puts "." in place of the first separator and of
    /// the first comma, in the text itself.
    explicit operator double();

  protected:
    /// Appends the number.
    void Common(double value, int decimals, char point);
};

class fString : public sv::String {
  public:
    explicit fString(sv::String const& text) : String(text) {}

    fString(double value, int decimals);
    /// With blanks in front until the length reaches `width`, here and below.
    fString(double value, int width, int decimals);
    fString(double value, int decimals, uchar stripZeros, uchar plusSign);
    fString(double value, int width, int decimals, uchar stripZeros, uchar plusSign);

    /// The number that the text begins with; 0 if there is none.
    explicit operator double() const;
};

}  // namespace kv
