// The text of a number field: reading what the user typed, and showing a number.
#pragma once

#include "SV/core/International.h"
#include "SV/core/String.h"

#include <optional>

namespace kv::detail {

/// The number that the whole text represents; empty if it is not a number or has more after it. The first
/// separator counts as the point, as "." always does; an empty text is 0; white space may precede and an
/// exponent may follow; "0x" begins a hexadecimal number. A number outside the range of `double` is infinity
/// or 0; "nan" is not a number. Uses no locale but the separator.
[[nodiscard]] std::optional<double> ReadNumber(sv::String text,
                                               char separator = sv::International::GetNumDecimalSep());

/// The number of a text being typed; empty unless it is in the range, both ends included.
[[nodiscard]] std::optional<double> TypedNumber(std::optional<double> read, double minimum,
                                                double maximum) noexcept;
/// The number after editing: the nearest one in the range, or `restore` unchanged if none could be read.
[[nodiscard]] double LeftNumber(std::optional<double> read, double minimum, double maximum,
                                double restore) noexcept;

/// The number with `resolution` decimals, then without zeros at its end, then without a separator there.
/// Intentional: with no decimals this removes the zeros of the number itself, so that 100 shows as "1" and 0
/// as nothing.
[[nodiscard]] sv::String ShownNumber(double value, int resolution,
                                     char separator = sv::International::GetNumDecimalSep());

}  // namespace kv::detail
