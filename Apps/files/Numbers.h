// Numbers: reads and writes numbers as text, whatever the locale. A measurement file has either decimal
// points or decimal commas.
#pragma once

#include "Apps/files/ReadError.h"

#include <optional>
#include <string>
#include <string_view>

namespace files {

/// Parses a finite decimal number with an optional exponent; `mark` is the decimal mark. Returns nothing for
/// an empty text, hexadecimal digits, "nan", "inf" and values beyond a double.
[[nodiscard]] std::optional<double> ToNumber(std::string_view text, char mark = '.');
/// Parses decimal digits; returns nothing for any other character and beyond the range of int.
[[nodiscard]] std::optional<int> ToWhole(std::string_view text) noexcept;

/// Returns the shortest text that reads back as the value, with a decimal point.
[[nodiscard]] std::string ToText(double value);
[[nodiscard]] std::string ToText(float value);

/// A column as messages name it: `column 2 ("nm380")`.
struct ColumnTitle {
    std::size_t index;
    std::string_view name;

    [[nodiscard]] std::string Text() const;
};

/// The decimal mark is not known yet.
inline constexpr char NoMark = '\0';

/// Reads the numbers of one file, all with the same decimal mark.
class NumberReader {
  public:
    /// Throws ReadError if the cell is not a number or has the other decimal mark.
    [[nodiscard]] double Read(std::string_view cell, Location const& location, ColumnTitle const& column);
    /// Returns whether a number had a decimal comma.
    [[nodiscard]] bool HasCommas() const noexcept { return mark_ == ','; }

  private:
    [[nodiscard]] std::optional<double> TryRead(std::string_view cell, std::size_t line);
    [[noreturn]] void Refuse(std::string_view cell, Location const& location,
                             ColumnTitle const& column) const;

    char mark_ = NoMark;
    std::size_t markLine_ = 0;
};

}  // namespace files
