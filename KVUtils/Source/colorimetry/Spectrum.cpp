#include "KVUtils/Source/colorimetry/Spectrum.h"

#include "KVUtils/Source/colorimetry/Spectrum18.h"

namespace kv {

Spectrum::Spectrum(Spectrum18 pairs) noexcept : PhysicalConditions(pairs) {
    float const* const s = pairs;
    for (int j = 0; j < Spectrum18::Points; ++j) {
        double const v = s[j];
        double const left = j == 0 ? 0.0 : s[j - 1] - v;
        double const right = j == Spectrum18::Points - 1 ? 0.0 : s[j + 1] - v;
        double const d = (left - right) * 0.125;
        (*this)[2 * j] = static_cast<float>(v + d);
        (*this)[2 * j + 1] = static_cast<float>(v - d);
    }
}

float Spectrum::Maximum() const noexcept {
    int nm = 0;
    return Maximum(nm);
}

float Spectrum::Maximum(int& nm) const noexcept {
    float maximum = 0;
    int best = 0;
    for (int k = 0; k < SpectralPoints; ++k) {
        if ((*this)[k] > maximum) {
            maximum = (*this)[k];
            best = k;
        }
    }
    nm = Wavelength(best);
    return maximum;
}

void Spectrum::operator/(float divisor) noexcept {
    for (float& sample : samples_) sample = static_cast<float>(double{sample} / double{divisor});
}

}  // namespace kv
