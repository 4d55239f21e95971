// DichteFilter: the four spectral filters of a density standard.
#pragma once

#include "KVUtils/Source/colorimetry/Filter.h"
#include "KVUtils/Source/colorimetry/Selectors.h"

#include <array>

namespace kv {

/// 0 visual, 1 red (for cyan), 2 green (for magenta), 3 blue (for yellow). The visual weights sum to 100 and
/// the others to 1; `DensityVector` allows for it.
class DichteFilter {
  public:
    /// The filters of a standard (ISO 5-3 status densities, DIN, SPI). Intentional: ANSI M, DS1 and unknown
    /// values have the visual filter only; the others are 0.
    explicit DichteFilter(DStdType standard) noexcept;

    [[nodiscard]] DStdClass GetDStd() const noexcept { return standard_; }
    /// The index is not checked.
    [[nodiscard]] Filter const& operator[](int channel) const noexcept { return filters_[channel]; }

    /// The sums of weight times sample of the four channels, not rounded.
    [[nodiscard]] constexpr std::array<double, 4> operator*(Spectrum const& spectrum) const noexcept {
        return detail::WeightedSums(filters_, spectrum);
    }

  private:
    friend struct StandardDensity;
    constexpr DichteFilter(std::array<Filter, 4> const& filters, DStdType standard) noexcept
        : filters_(filters), standard_(standard) {}

    std::array<Filter, 4> filters_;
    DStdClass standard_;
};

}  // namespace kv
