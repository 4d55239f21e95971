// Roundings that no optimiser takes out.
#pragma once

#include <type_traits>

namespace kv::detail {

/// The value rounded to `T`. GCC 12 at -O2 and above drops the rounding of values that it keeps in a vector
/// register, and by default joins a product and a sum where the processor can; a volatile read is one that it
/// may not skip. Costs nothing measurable where a spectrum becomes a vector.
template <class T, class Wide>
[[nodiscard]] constexpr T Rounded(Wide value) noexcept {
    if (std::is_constant_evaluated()) return static_cast<T>(value);
    T volatile const rounded = static_cast<T>(value);
    return rounded;
}

}  // namespace kv::detail
