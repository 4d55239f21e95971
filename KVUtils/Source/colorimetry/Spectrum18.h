// Spectrum18: a spectrum at half the resolution, for storing or sending many spectra.
#pragma once

#include "KVUtils/Source/colorimetry/MeasuringCondition.h"

#include <array>

namespace kv {

class Spectrum;

/// 18 samples; sample j is the mean of samples 2j and 2j + 1 of a `Spectrum`. An index outside [0, 17] is not
/// checked.
class Spectrum18 : public PhysicalConditions {
  public:
    static constexpr int Points = 18;

    /// Default conditions, samples 0.
    constexpr Spectrum18() noexcept = default;
    /// Takes the mean of each pair of samples.
    explicit Spectrum18(Spectrum spectrum) noexcept;

    /// Sets all samples.
    constexpr void Init(float value) noexcept { samples_.fill(value); }

    [[nodiscard]] constexpr float& operator[](unsigned short point) noexcept { return samples_[point]; }
    constexpr operator float const*() const noexcept { return samples_.data(); }
    constexpr operator float*() noexcept { return samples_.data(); }

    /// Sample i packed into 16 bits by `SpezFloatWord::floatToFloatWord`.
    [[nodiscard]] unsigned int GetFloatWord(int i) const noexcept;

  private:
    std::array<float, Points> samples_{};
};

/// Packs a sample of the range [0, 4) into 16 bits. The low bits of the word encode its range; precision
/// decreases in steps toward small values.
class SpezFloatWord {
  public:
    /// The word is in the low 16 bits. A negative sample or NaN counts as 0; a sample of 4 or more gives the
    /// largest word.
    [[nodiscard]] static unsigned int floatToFloatWord(float value) noexcept;
};

}  // namespace kv
