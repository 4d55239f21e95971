// The suite's own perceptually scaled space, mg: CIELAB stretched so that distance approximates the CMC
// difference.
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LABVector;
class LABmgVector;

/// L, C and H of mg, H in degrees.
class LCHmgVector : public ColorVector {
  public:
    constexpr LCHmgVector() noexcept = default;
    constexpr LCHmgVector(float L, float C, float H, MeasuringCondition const& condition) noexcept
        : ColorVector(L, C, H, condition) {}
    explicit LCHmgVector(LABVector const& lab) noexcept;
    /// Hue above 0 up to 360, 360 without chroma.
    explicit LCHmgVector(LABmgVector const& lab) noexcept;
};

/// The same in rectangular components: L, C cos H, C sin H.
class LABmgVector : public ColorVector {
  public:
    constexpr LABmgVector() noexcept = default;
    constexpr LABmgVector(float L, float a, float b, MeasuringCondition const& condition) noexcept
        : ColorVector(L, a, b, condition) {}
    explicit LABmgVector(LCHmgVector const& lch) noexcept;
};

}  // namespace kv
