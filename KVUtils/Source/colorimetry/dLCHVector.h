// Differences in lightness, chroma and hue between two colours: first minus second, the sample and its
// standard.
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LABVector;

/// Delta L*, Delta C*, Delta H* (CIE 15). Delta H is signed by the sense of rotation from second to first:
/// negative when the hue of first lies clockwise of second's. The conditions are those of first.
class dLCHVector : public ColorVector {
  public:
    constexpr dLCHVector() noexcept = default;
    constexpr dLCHVector(float dL, float dC, float dH, MeasuringCondition const& condition) noexcept
        : ColorVector(dL, dC, dH, condition) {}
    dLCHVector(LABVector const& first, LABVector const& second) noexcept;
};

/// The same in the mg scale.
class dLCHmgVector : public ColorVector {
  public:
    constexpr dLCHmgVector() noexcept = default;
    constexpr dLCHmgVector(float dL, float dC, float dH, MeasuringCondition const& condition) noexcept
        : ColorVector(dL, dC, dH, condition) {}
    dLCHmgVector(LABVector const& first, LABVector const& second) noexcept;
};

}  // namespace kv
