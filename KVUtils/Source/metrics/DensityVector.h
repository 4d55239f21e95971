// Optical densities of a spectrum through the four filters of a density standard.
#pragma once

#include "KVUtils/Source/colorimetry/MeasuringCondition.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <array>

namespace kv {

/// 0 visual (black), 1 red (cyan), 2 green (magenta), 3 blue (yellow). Densities have no unit and are not
/// clamped. Illuminant and observer of the conditions stay unset.
class DensityVector : public MeasuringCondition {
  public:
    constexpr DensityVector(float visual, float red, float green, float blue,
                            MeasuringCondition const& condition) noexcept
        : MeasuringCondition(condition), density_{visual, red, green, blue} {}
    /// All densities 0.
    constexpr explicit DensityVector(MeasuringCondition const& condition) noexcept
        : MeasuringCondition(condition) {}
    /// D = -log10 of the filtered reflectance (ISO 5-3), with the filters in force. With `relative` and a
    /// paper white in force (`CMetry::EnterWhite`), the white's density is subtracted. A filtered sum of
    /// exactly 0 gives density 0, the visual one without a white 2, where infinity might be expected; a
    /// negative sum gives NaN, and a white that is 0 in a whole channel minus infinity.
    DensityVector(Spectrum const& spectrum, bool relative) noexcept;

    /// The index is not checked.
    [[nodiscard]] constexpr float operator[](int channel) const noexcept { return density_[channel]; }
    [[nodiscard]] constexpr float& operator[](int channel) noexcept { return density_[channel]; }

    /// The channel to judge this colour by: that of the largest of densities 1 to 3, or 0 (visual) if the
    /// largest is below 0.01 or the smallest above 70 percent of it, which makes the colour a neutral one.
    [[nodiscard]] int AutoFilter() const noexcept;

  private:
    std::array<float, 4> density_{};
};

}  // namespace kv
