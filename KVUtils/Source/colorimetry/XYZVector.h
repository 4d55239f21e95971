// Tristimulus values and chromaticities (CIE 15).
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LABVector;

/// X, Y, Z; Y is 100 for the perfect white. Weights that sum to 0 give infinity or NaN.
class XYZVector : public ColorVector {
  public:
    constexpr XYZVector() noexcept = default;
    constexpr XYZVector(float x, float y, float z, MeasuringCondition const& condition) noexcept
        : ColorVector(x, y, z, condition) {}
    /// 100 times the weighted sum of the samples over the sum of the Y weights, with the weights in force.
    explicit XYZVector(Spectrum const& spectrum) noexcept;
    /// The same with these weights; updates their cached sums.
    XYZVector(CMetryFilter& weights, Spectrum const& spectrum) noexcept;
    /// The inverse of CIELAB against the white of the weights in force, whatever the vector's own conditions
    /// say.
    explicit XYZVector(LABVector const& lab) noexcept;
};

/// x, y, Y.
class xyYVector : public ColorVector {
  public:
    constexpr xyYVector() noexcept = default;
    constexpr xyYVector(float x, float y, float Y, MeasuringCondition const& condition) noexcept
        : ColorVector(x, y, Y, condition) {}
    /// With the weights in force. Unlike the other vectors computed from a spectrum, it keeps the default
    /// conditions. A black spectrum gives NaN.
    explicit xyYVector(Spectrum const& spectrum) noexcept;
};

}  // namespace kv
