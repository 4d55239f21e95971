#include "Apps/evaluation/Summary.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace evaluation {

std::optional<Summary> Summarise(std::span<float const> values) {
    Summary summary;
    std::vector<float> finite;
    double sum = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!std::isfinite(values[i])) continue;
        if (finite.empty() || values[i] > summary.maximum) {
            summary.maximum = values[i];
            summary.whereMaximum = i;
        }
        sum += values[i];
        finite.push_back(values[i]);
    }
    if (finite.empty()) return std::nullopt;

    std::ranges::sort(finite);
    summary.count = finite.size();
    summary.mean = static_cast<float>(sum / static_cast<double>(summary.count));
    // The rank is ceil(0.95 n).
    summary.percentile95 = finite[(95 * summary.count + 99) / 100 - 1];
    return summary;
}

}  // namespace evaluation
