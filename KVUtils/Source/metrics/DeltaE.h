// DeltaE: colour difference formulas. The first argument is the sample and the second the standard. Formulas
// weighted by the colour take it from the standard alone, so their arguments may not be exchanged. A
// difference below 1 is commonly not seen side by side.
//
// Overloads on `XYZVector` go through CIELAB with the weights in force in `CMetry`, whatever conditions the
// vectors carry. Weights are not checked: 0 gives infinity or NaN.
#pragma once

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

namespace kv {

class DeltaE {
  public:
    DeltaE() = delete;

    /// What `FMCII` returns for a standard without light.
    static constexpr float Undefined = 99999.99F;

    /// Euclidean distance of L*, a*, b* (CIE 15, Delta E*ab). The arguments may be exchanged.
    [[nodiscard]] static float CIELAB(LABVector const& sample, LABVector const& standard) noexcept;
    [[nodiscard]] static float CIELAB(XYZVector const& sample, XYZVector const& standard) noexcept;

    /// CMC(l:c) (BS 6923) with weights l of lightness and c of chroma; 2:1 for acceptability, 1:1 for
    /// perceptibility.
    [[nodiscard]] static float CMC(LABVector const& sample, LABVector const& standard, float l,
                                   float c) noexcept;
    [[nodiscard]] static float CMC(XYZVector const& sample, XYZVector const& standard, float l,
                                   float c) noexcept;

    /// Friele-MacAdam-Chickering II, on the tristimulus values. `Undefined` for a standard without light:
    /// with P and Q both 0, or neither Y nor Z above 0, even if the colours are equal.
    [[nodiscard]] static float FMCII(XYZVector const& sample, XYZVector const& standard) noexcept;

    /// Euclidean distance in the rectangular mg space. The arguments may be exchanged.
    [[nodiscard]] static float LABmg(XYZVector const& sample, XYZVector const& standard) noexcept;

    /// CIE94 (CIE 116) with the chroma of the standard; kL, kC, kH are 1 under reference conditions.
    [[nodiscard]] static float dE94(XYZVector const& sample, XYZVector const& standard, float kL, float kC,
                                    float kH) noexcept;

    /// House formula: lightness counts four times and chroma twice where the sample is darker or weaker than
    /// the standard, hue always twice.
    [[nodiscard]] static float dEKORVEL1(LABVector const& sample, LABVector const& standard) noexcept;
    /// House formula: chroma counts 1.73 times where the sample is weaker than the standard, else 1/1.73
    /// times.
    [[nodiscard]] static float dEKORVEL2(LABVector const& sample, LABVector const& standard) noexcept;
};

}  // namespace kv
