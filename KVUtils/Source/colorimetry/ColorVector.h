// ColorVector: three colour components with the conditions that they hold under. The base of all colour
// spaces; a conversion between two spaces is a constructor of the target.
#pragma once

#include "KVUtils/Source/colorimetry/CMetryFilter.h"
#include "KVUtils/Source/colorimetry/MeasuringCondition.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "SV/core/String.h"

#include <array>

namespace kv {

class ColorVector : public MeasuringCondition {
  public:
    /// The index is not checked.
    [[nodiscard]] constexpr float operator[](int component) const noexcept { return v_[component]; }
    [[nodiscard]] constexpr float& operator[](int component) noexcept { return v_[component]; }
    [[nodiscard]] constexpr float const* getV() const noexcept { return v_.data(); }
    [[nodiscard]] constexpr float* getV() noexcept { return v_.data(); }

    /// Component by component; keeps the conditions. A zero divisor gives infinity or NaN.
    ColorVector& operator*=(ColorVector const& other) noexcept;
    ColorVector& operator/=(ColorVector const& other) noexcept;
    ColorVector& operator+=(ColorVector const& other) noexcept;
    ColorVector& operator-=(ColorVector const& other) noexcept;
    ColorVector& operator*=(float factor) noexcept;
    ColorVector& operator/=(float divisor) noexcept;

    /// The Euclidean norm.
    [[nodiscard]] float Length() const noexcept { return LinAlg::BetragV(getV(), 3); }

    /// "{0.00, 0.00, 0.00}" with two decimals and the locale's separator.
    operator sv::String() const;

  protected:
    /// Default conditions, components 0.
    constexpr ColorVector() noexcept = default;
    /// Components 0.
    constexpr explicit ColorVector(MeasuringCondition const& condition) noexcept
        : MeasuringCondition(condition) {}
    constexpr ColorVector(float v0, float v1, float v2, MeasuringCondition const& condition) noexcept
        : MeasuringCondition(condition), v_{v0, v1, v2} {}
    /// The three weighted sums, not scaled. Illuminant and observer are the filter's, the physical conditions
    /// the spectrum's; the density standard is not set.
    constexpr ColorVector(CMetryFilter const& weights, Spectrum const& spectrum) noexcept
        : MeasuringCondition(weights.GetIllum(), weights.GetObserver(), spectrum), v_(weights * spectrum) {}

  private:
    std::array<float, 3> v_{};
};

}  // namespace kv
