// Phi: the dot area of a halftone from filtered reflectances.
#pragma once

#include "KVUtils/Source/colorimetry/Spectrum.h"

namespace kv {

/// (white - tone) / (white - solid), the Murray-Davies relation (1936) through one filter of the density
/// standard in force. A fraction, 0 for the paper and 1 for the solid; not a percentage, and not clamped.
class Phi {
  public:
    /// `filterIndex` is 0 visual, 1 red, 2 green or 3 blue and is not checked. Intentional: the white is the
    /// response that `CMetry::EnterWhite` stored last, also after the white was withdrawn; strips being
    /// measured rely on it. 0 if the solid is not darker than the white, and so before any white is entered:
    /// call `CMetry::EnterWhite(paper)` first, and again after a change of the density standard.
    Phi(int filterIndex, Spectrum const& tone, Spectrum const& solid) noexcept;

    [[nodiscard]] operator float() const noexcept { return result_; }

    /// White minus solid, white minus tone, and the white, each as filtered reflectance.
    [[nodiscard]] float GetDenominator() const noexcept { return denominator_; }
    [[nodiscard]] float GetNumerator() const noexcept { return numerator_; }
    [[nodiscard]] float GetWhite() const noexcept { return white_; }
    [[nodiscard]] int GetFilterIndex() const noexcept { return filterIndex_; }

  private:
    [[nodiscard]] float CalcRemi(Spectrum const& spectrum) const noexcept;

    float result_ = 0;
    float denominator_ = 0;
    float numerator_ = 0;
    float white_;
    int filterIndex_;
};

}  // namespace kv
