// Summary: many differences in three numbers.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace kvcolor {

/// Values that are not finite take no part.
struct Summary {
    std::size_t count = 0;
    float mean = 0;
    /// By nearest rank: the smallest value that at least 95 of 100 values do not exceed.
    float percentile95 = 0;
    float maximum = 0;
    /// The position of the first maximum.
    std::size_t whereMaximum = 0;
};

/// None when no value is finite.
[[nodiscard]] std::optional<Summary> Summarise(std::span<float const> values);

}  // namespace kvcolor
