// GString and fString: format numbers with a rounding of their own that is the same on every machine. GString
// is for users and has the decimal separator of their locale; fString is for files and messages and has ".".
//
// All forms round half away from zero at the last decimal, and write no point without decimals. The sign is
// decided before rounding: -0.004 with two decimals is "-0.00"; minus zero has no sign. At most 36 digits are
// written, the leading ones of a longer number. The digits are computed with a constant slightly above 0.1:
// exact up to 1e14, except that a value a few units of its last bit below a half is rounded up. Infinity is
// "inf", NaN is "nan", and a negative number of decimals counts as 0.
#pragma once

#include "SV/core/String.h"

#include <string_view>

namespace kv {

using uchar = unsigned char;

namespace detail {

/// Formats the number as described above, with `point` as the decimal separator.
[[nodiscard]] sv::String NumberText(double value, int decimals, char point);
/// If `plusSign` is not 0, adds a "+" before values of 0 and above; if `stripZeros` is not 0, removes
/// trailing zeros after the point, and the point if it ends the text.
[[nodiscard]] sv::String NumberText(double value, int decimals, char point, uchar stripZeros, uchar plusSign);

/// The number at the start of a text, and the text after it.
struct ParsedNumber {
    double value;
    std::string_view rest;
};
/// Reads a number with "." after white space; returns 0 and the whole text if there is none. Ignores the
/// locale.
[[nodiscard]] ParsedNumber ParseLeadingNumber(std::string_view text) noexcept;

}  // namespace detail

class GString : public sv::String {
  public:
    GString(sv::String const& text) : String(text) {}

    GString(double value, int decimals);
    /// Pads with leading blanks to `width`, here and below.
    GString(double value, int width, int decimals);
    GString(double value, int decimals, char point);
    GString(double value, int width, int decimals, char point);
    GString(double value, int decimals, uchar stripZeros, uchar plusSign);
    GString(double value, int width, int decimals, uchar stripZeros, uchar plusSign);
    GString(int value, int width);

    /// Returns 1 if the parts of the pattern between its "*" occur in this order, otherwise 0. The first need
    /// not be at the start nor the last at the end: "a" matches every text with an "a". Case-sensitive.
    [[nodiscard]] uchar MatchPattern(sv::String const& pattern) const;

    /// Returns the number at the start of the text, 0 if there is none. The point is the locale's separator
    /// or a comma: the first of each is replaced by ".", in the text itself. Sums and comparisons of two
    /// texts remain those of texts.
    operator double();

    /// Without these the conversion to a number would make a sum with a literal ambiguous.
    friend sv::String operator+(GString const& left, char const* right) { return sv::String(left) += right; }
    friend sv::String operator+(char const* left, GString const& right) { return sv::String(left) += right; }

  protected:
    /// Appends the number.
    void Common(double value, int decimals, char point);
};

class fString : public sv::String {
  public:
    fString(sv::String const& text) : String(text) {}

    fString(double value, int decimals);
    /// Pads with leading blanks to `width`, here and below.
    fString(double value, int width, int decimals);
    fString(double value, int decimals, uchar stripZeros, uchar plusSign);
    fString(double value, int width, int decimals, uchar stripZeros, uchar plusSign);

    /// Returns the number at the start of the text, 0 if there is none.
    operator double() const;

    /// Without these the conversion to a number would make a sum with a literal ambiguous.
    friend sv::String operator+(fString const& left, char const* right) { return sv::String(left) += right; }
    friend sv::String operator+(char const* left, fString const& right) { return sv::String(left) += right; }
};

}  // namespace kv
