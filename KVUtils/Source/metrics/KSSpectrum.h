// Colour strength of printed inks: absorption over scattering (K/S) of a print relative to its paper.
#pragma once

#include "KVUtils/Source/colorimetry/Spectrum.h"

namespace kv {

/// The ink model: a power formula, Kubelka-Munk after a correction of the reflectance, or plain Kubelka-Munk.
/// Every other value counts as plain.
enum class KSFarbartType : int { Power = 0, CorrectedKubelkaMunk = 1, KubelkaMunk = 2 };

/// How a K/S spectrum is rated: by its value at the wavelength of the maximum, or by its weighted mean. Every
/// value but 1 counts as maximum.
enum class KSMethodeType : int { Maximum = 0, WeightedMean = 1 };

/// The samples are K/S values.
class KSSpectrum : public Spectrum {
  public:
    /// Sample and paper are reflectances as fractions, each clamped to [0.0001, 1]. With r = sample / paper
    /// the value is (1 - r)^2 / (2 r) (Kubelka-Munk 1931), or a power of -ln r. In the power model r is held
    /// at 1; in the others a sample lighter than its paper still has a value.
    KSSpectrum(Spectrum const& sample, Spectrum const& paper, KSFarbartType kind) noexcept;

    /// The paper, as clamped.
    [[nodiscard]] Spectrum GetPapierSpektrum() const noexcept { return paper_; }
    [[nodiscard]] KSFarbartType GetKSFarbart() const noexcept { return kind_; }

    /// The mean weighted by x + y + z of the observer in force in `CMetry`; NaN before `CMetry::SetCMetry` or
    /// `SetMeasuringConditions` was called.
    [[nodiscard]] float mean() const noexcept;
    /// The rating: weighted mean or largest value, the latter at least 0.
    [[nodiscard]] float KS(KSMethodeType method) const noexcept;

  private:
    KSFarbartType kind_;
    Spectrum paper_;
};

}  // namespace kv
