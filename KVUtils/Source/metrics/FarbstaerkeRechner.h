// FarbstaerkeRechner: rates the colour strength of samples against a reference.
#pragma once

#include "KVUtils/Source/metrics/KSSpectrum.h"

namespace kv {

class FarbstaerkeRechner {
  public:
    /// Takes paper, ink model and the reference's rating from `reference`. A rating not above 0.0001 counts
    /// as 0.0001.
    FarbstaerkeRechner(KSSpectrum const& reference, KSMethodeType method) noexcept;

    /// The strength of a sample (reflectances) on the reference's paper as a ratio: 1.0 is equal strength. At
    /// most 9.999. The maximum method reads the sample at the reference's wavelength, not at the sample's own
    /// maximum.
    [[nodiscard]] float DS(Spectrum const& sample) const noexcept;

    /// The wavelength of the reference's maximum in nm, 380 where no value is above 0; 0 for the weighted
    /// mean.
    [[nodiscard]] int GetMaxWellenlaenge() const noexcept { return wavelength_; }

  private:
    KSFarbartType kind_;
    KSMethodeType method_;
    Spectrum paper_;
    float reference_ = 0;
    int wavelength_ = 0;
};

}  // namespace kv
