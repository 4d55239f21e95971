// CIELAB (CIE 15), rectangular and polar.
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

namespace kv {

class LChVector;
class LCHmgVector;
class XYZVector;

/// L* [0, 100], a*, b*. The white is the perfect diffuser under the weights; a paper white never enters.
class LABVector : public ColorVector {
  public:
    constexpr LABVector() noexcept = default;
    constexpr LABVector(float L, float a, float b, MeasuringCondition const& condition) noexcept
        : ColorVector(L, a, b, condition) {}
    /// With the weights in force.
    explicit LABVector(Spectrum const& spectrum) noexcept;
    /// With these weights; updates their cached sums.
    LABVector(CMetryFilter& weights, Spectrum const& spectrum) noexcept;
    /// Against the white of the weights in force, whatever the vector's own conditions say.
    explicit LABVector(XYZVector const& xyz) noexcept;
    LABVector(CMetryFilter& weights, XYZVector const& xyz) noexcept;
    explicit LABVector(LChVector const& lch) noexcept;
};

/// L*, C*, h in degrees above 0 up to 360; the hue of a colour without chroma is 360, never 0.
class LChVector : public ColorVector {
  public:
    constexpr LChVector() noexcept = default;
    constexpr LChVector(float L, float C, float h, MeasuringCondition const& condition) noexcept
        : ColorVector(L, C, h, condition) {}
    /// By way of `LABVector`, with the weights in force.
    explicit LChVector(Spectrum const& spectrum) noexcept;
    explicit LChVector(XYZVector const& xyz) noexcept;
    explicit LChVector(LABVector const& lab) noexcept;
    /// Back from the mg scale by search, to 0.001 of that scale: a few hundred evaluations, not for inner
    /// loops. May return a hue of 0, and may miss a hue just below 360 by up to 0.45 degrees.
    explicit LChVector(LCHmgVector const& mg) noexcept;

  private:
    void ProbiereL(LCHmgVector const& target, float lo, float hi) noexcept;
    void ProbiereC(LCHmgVector const& target, float lo, float hi) noexcept;
    void ProbiereH(LCHmgVector const& target, float lo, float hi) noexcept;
};

}  // namespace kv
