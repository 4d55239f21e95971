// The text of a number field: what a person typed as a number, and a number as the field shows it.
#pragma once

#include "SV/core/International.h"
#include "SV/core/String.h"

#include <optional>

namespace kv::detail {

/// The number that the whole text stands for, none if it is no number or goes on behind it. The first
/// separator counts as the point, "." does in any case; an empty text is 0; white space may stand in front,
/// an exponent behind; "0x" begins a hexadecimal number. What no `double` can hold is infinite or 0, and
/// "nan" is no number. Knows no locale but the separator.
[[nodiscard]] std::optional<double> ReadNumber(sv::String text,
                                               char separator = sv::International::GetNumDecimalSep());

/// The number of a text that is being typed: none as long as it is not one of the range, both ends included.
[[nodiscard]] std::optional<double> TypedNumber(std::optional<double> read, double minimum,
                                                double maximum) noexcept;
/// The number of a text that was left: the nearest of the range, or `restore`, as it is, when none could be
/// read.
[[nodiscard]] double LeftNumber(std::optional<double> read, double minimum, double maximum,
                                double restore) noexcept;

/// The number with `resolution` decimals, then without zeros at its end, then without a separator there. With
/// no decimals this takes the zeros of the number itself, 100 shows as "1" and 0 as nothing: meant.
[[nodiscard]] sv::String ShownNumber(double value, int resolution,
                                     char separator = sv::International::GetNumDecimalSep());

}  // namespace kv::detail
