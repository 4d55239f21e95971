// Tristimulus values and chromaticities (CIE 15).
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LABVector;

/// X, Y, Z; Y is 100 for the perfect white. A set of weights that sum to 0 gives the infinities and
/// not-a-numbers of the division.
class XYZVector : public ColorVector {
  public:
    constexpr XYZVector() noexcept = default;
    constexpr XYZVector(float x, float y, float z, MeasuringCondition const& condition) noexcept
        : ColorVector(x, y, z, condition) {}
    /// 100 times the weighted sum of the samples over the sum of the Y weights, with the weights in force.
    explicit XYZVector(Spectrum const& spectrum) noexcept;
    /// The same with these weights, whose sums are brought up to date in passing.
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
    /// With the weights in force. The conditions stay the default ones: unlike the other vectors of a
    /// spectrum, a chromaticity is shown for itself. A black spectrum gives not-a-number.
    explicit xyYVector(Spectrum const& spectrum) noexcept;
};

}  // namespace kv
