// Numbers as measurement files write them: a decimal point or a decimal comma, one of the two throughout a
// file.
#pragma once

#include "Apps/files/ReadError.h"

#include <optional>
#include <string>
#include <string_view>

namespace files {

/// A finite number in decimal digits, with an exponent if need be; `mark` divides its fraction. Not a number:
/// an empty text, hexadecimal digits, "nan", "inf", values beyond what a double holds.
[[nodiscard]] std::optional<double> ToNumber(std::string_view text, char mark = '.');

/// The shortest text that reads as the value, with a decimal point.
[[nodiscard]] std::string ToText(double value);

/// Stands where no decimal mark was seen.
inline constexpr char NoMark = '\0';

/// Reads the numbers of one file and holds it to its first decimal mark.
class NumberReader {
  public:
    /// `columnName` answers what the error text calls the cell's column. Throws ReadError when the cell is no
    /// number.
    template <class ColumnName>
    [[nodiscard]] double Read(std::string_view cell, Place const& place, ColumnName const& columnName) {
        auto const value = TryRead(cell, place.line);
        if (!value) Refuse(cell, place, columnName());
        return *value;
    }
    /// Whether a decimal comma was seen.
    [[nodiscard]] bool HasCommas() const noexcept { return mark_ == ','; }

  private:
    [[nodiscard]] std::optional<double> TryRead(std::string_view cell, std::size_t line);
    [[noreturn]] void Refuse(std::string_view cell, Place const& place, std::string const& column) const;

    char mark_ = NoMark;
    std::size_t markLine_ = 0;
};

}  // namespace files
