#include "KVUtils/Source/metrics/KSSpectrum.h"

#include "KVUtils/Source/colorimetry/CMetry.h"

#include <algorithm>
#include <cmath>

namespace kv {

namespace {

void Clamp(Spectrum& spectrum) noexcept {
    for (int k = 0; k < SpectralPoints; ++k) spectrum[k] = std::clamp(spectrum[k], 0.0001F, 1.0F);
}

double KubelkaMunk(double r) noexcept { return (1 - r) * (1 - r) / (2 * r); }

double KSValue(double r, KSFarbartType kind) noexcept {
    switch (kind) {
        case KSFarbartType::Power:
            return std::pow(-std::log(std::min(r, 1.0)) * 0.38744672607516467, 1.639344262295082);
        case KSFarbartType::CorrectedKubelkaMunk:
            return KubelkaMunk(r / (0.6 * r + 0.384));
        default:
            return KubelkaMunk(r);
    }
}

}  // namespace

KSSpectrum::KSSpectrum(Spectrum const& sample, Spectrum const& paper, KSFarbartType kind) noexcept
    : Spectrum(sample), kind_(kind), paper_(paper) {
    Clamp(*this);
    Clamp(paper_);
    LinAlg::VdivV(*this, *this, paper_, SpectralPoints);
    for (int k = 0; k < SpectralPoints; ++k) (*this)[k] = static_cast<float>(KSValue((*this)[k], kind));
}

float KSSpectrum::mean() const noexcept {
    Filter weights = CMetry::xyzSumme;
    weights.CalculateSumme();
    return static_cast<float>(double{weights * *this} / weights.FilterSumme());
}

float KSSpectrum::KS(KSMethodeType method) const noexcept {
    return method == KSMethodeType::WeightedMean ? mean() : Maximum();
}

}  // namespace kv
