#include "KVUtils/Source/metrics/FarbstaerkeRechner.h"

namespace kv {

FarbstaerkeRechner::FarbstaerkeRechner(KSSpectrum const& reference, KSMethodeType method) noexcept
    : kind_(reference.GetKSFarbart()), method_(method), paper_(reference.GetPapierSpektrum()) {
    constexpr double least = 0.0001;
    reference_ = method == KSMethodeType::WeightedMean ? reference.mean() : reference.Maximum(wavelength_);
    if (!(reference_ > least)) reference_ = static_cast<float>(least);
}

float FarbstaerkeRechner::DS(Spectrum const& sample) const noexcept {
    constexpr double most = 9.999;
    KSSpectrum const ks(sample, paper_, kind_);
    float const rating = method_ == KSMethodeType::WeightedMean ? ks.mean() : ks[wavelength_ / 10 - 38];
    double const strength = double{rating} / reference_;
    return static_cast<float>(strength >= most ? most : strength);
}

}  // namespace kv
