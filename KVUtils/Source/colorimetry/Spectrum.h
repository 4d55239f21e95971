// Spectrum: one measured reflectance curve on the system's grid, with the conditions of its measurement.
#pragma once

#include "KVUtils/Source/colorimetry/LinAlg.h"
#include "KVUtils/Source/colorimetry/MeasuringCondition.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"

#include <array>

namespace kv {

class Spectrum18;

/// 36 samples at 380 to 730 nm by 10. Reflectance is a fraction, 1.0 being the perfect white; samples above 1
/// can occur and are kept. Divide percentages by 100 first: 85 counts as 8500 %, without a warning. The index
/// is not checked.
class Spectrum : public PhysicalConditions {
  public:
    /// Default conditions, samples 0.
    constexpr Spectrum() noexcept = default;
    /// Samples 0.
    constexpr explicit Spectrum(PhysicalConditions const& conditions) noexcept
        : PhysicalConditions(conditions) {}
    /// All samples `value`.
    constexpr Spectrum(float value, PhysicalConditions const& conditions) noexcept
        : PhysicalConditions(conditions) {
        Init(value);
    }
    /// Copies 36 samples.
    constexpr Spectrum(float const* samples, PhysicalConditions const& conditions) noexcept
        : PhysicalConditions(conditions) {
        LinAlg::CopyVector(samples_.data(), samples, SpectralPoints);
    }
    /// Spreads each of the 18 samples over two, with a slope from its neighbours; keeps the mean of each
    /// pair. An end has half the slope.
    explicit Spectrum(Spectrum18 pairs) noexcept;

    /// Sets all samples; keeps the conditions.
    constexpr void Init(float value) noexcept { samples_.fill(value); }

    [[nodiscard]] constexpr float operator[](int point) const noexcept { return samples_[point]; }
    [[nodiscard]] constexpr float& operator[](int point) noexcept { return samples_[point]; }
    constexpr operator float const*() const noexcept { return samples_.data(); }
    constexpr operator float*() noexcept { return samples_.data(); }

    /// The sum of the samples.
    [[nodiscard]] constexpr float Summe() const noexcept { return LinAlg::SumV(*this, SpectralPoints); }
    /// The mean of the samples, to the rounding of the `float` 1/36.
    [[nodiscard]] constexpr float mean() const noexcept {
        return static_cast<float>(double{Summe()} * double{0.0277777780F});
    }
    /// The largest sample, or 0 when none is above 0.
    [[nodiscard]] float Maximum() const noexcept;
    /// The same; sets `nm` to its wavelength: of equal maxima the shortest, 380 when none is above 0.
    [[nodiscard]] float Maximum(int& nm) const noexcept;

    /// Adds to this spectrum. Changes its left side although it is spelled as a binary plus; callers rely on
    /// it.
    void operator+(Spectrum const& other) noexcept { LinAlg::VAddV(*this, other, SpectralPoints); }
    /// Divides this spectrum in place, likewise. A zero divisor gives infinity or NaN.
    void operator/(float divisor) noexcept;

  private:
    std::array<float, SpectralPoints> samples_{};
};

}  // namespace kv
