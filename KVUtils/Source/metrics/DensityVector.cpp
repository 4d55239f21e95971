#include "KVUtils/Source/metrics/DensityVector.h"

#include "KVUtils/Source/colorimetry/CMetry.h"

#include <algorithm>
#include <cmath>

namespace kv {

DensityVector::DensityVector(Spectrum const& spectrum, bool relative) noexcept
    : MeasuringCondition(CMetry::aDichteFilter.GetDStd(), spectrum) {
    bool const toWhite = relative && CMetry::PapierSpektrumDefiniert != 0;
    std::array<double, 4> const sums = CMetry::aDichteFilter * spectrum;
    for (int i = 0; i < 4; ++i) {
        if (sums[i] != 0) (*this)[i] = static_cast<float>(-std::log10(sums[i]));
    }
    if (toWhite) {
        std::array<double, 4> const white = CMetry::aDichteFilter * CMetry::amPaperWhiteSpec;
        for (int i = 0; i < 4; ++i) {
            if (sums[i] != 0) (*this)[i] = static_cast<float>((*this)[i] + std::log10(white[i]));
        }
    } else {
        // The visual weights sum to 100; relative to a white that factor cancels.
        (*this)[0] = static_cast<float>((*this)[0] + 2.0);
    }
}

int DensityVector::AutoFilter() const noexcept {
    constexpr float weakest = 0.01F;
    constexpr double neutralPercent = 70;
    DensityVector const& d = *this;

    int strongest = d[1] < d[2] ? 2 : 1;
    if (d[strongest] < d[3]) strongest = 3;
    if (d[strongest] < weakest) return 0;
    float const least = std::min({d[1], d[2], d[3]});
    return least * 100.0 / d[strongest] <= neutralPercent ? strongest : 0;
}

}  // namespace kv
