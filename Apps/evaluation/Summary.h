// Summary: the mean, the 95th percentile and the maximum of many differences.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace evaluation {

/// Ignores values that are not finite.
struct Summary {
    std::size_t count = 0;
    float mean = 0;
    /// By nearest rank: the smallest value that at least 95 % of the values do not exceed.
    float percentile95 = 0;
    float maximum = 0;
    /// The position of the first maximum.
    std::size_t whereMaximum = 0;
};

/// Returns nothing if no value is finite.
[[nodiscard]] std::optional<Summary> Summarise(std::span<float const> values);

}  // namespace evaluation
