#include "KVUtils/Source/metrics/Phi.h"

#include "KVUtils/Source/colorimetry/CMetry.h"

namespace kv {

Phi::Phi(int filterIndex, Spectrum const& tone, Spectrum const& solid) noexcept
    : white_(CMetry::PapierweissNormfaktor[filterIndex]), filterIndex_(filterIndex) {
    denominator_ = white_ - CalcRemi(solid);
    numerator_ = white_ - CalcRemi(tone);
    if (denominator_ > 0) result_ = static_cast<float>(double{numerator_} / denominator_);
}

float Phi::CalcRemi(Spectrum const& spectrum) const noexcept {
    return CMetry::aDichteFilter[filterIndex_] * spectrum;
}

}  // namespace kv
