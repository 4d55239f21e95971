#include "KVUtils/Source/colorimetry/dLCHVector.h"

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/LCHmgVector.h"

#include <cmath>

namespace kv {

namespace {

/// From two colours (L, a, b) in rectangular components. The norm stays in double: rounded, equal hues would
/// show a hue difference that is noise.
void Differences(float const* first, float const* second, float* d) noexcept {
    double const L1 = first[0], a1 = first[1], b1 = first[2];
    double const L2 = second[0], a2 = second[1], b2 = second[2];

    double const D0 = L1 - L2;
    double const normSquared = D0 * D0 + (a1 - a2) * (a1 - a2) + (b1 - b2) * (b1 - b2);
    auto const dC = static_cast<float>(std::sqrt(a1 * a1 + b1 * b1) - std::sqrt(a2 * a2 + b2 * b2));
    double const dH = std::sqrt(std::fabs(normSquared - D0 * D0 - double{dC} * double{dC}));

    d[0] = static_cast<float>(D0);
    d[1] = dC;
    d[2] = static_cast<float>(a1 * b2 - a2 * b1 > 0 ? -dH : dH);
}

}  // namespace

dLCHVector::dLCHVector(LABVector const& first, LABVector const& second) noexcept : ColorVector(first) {
    Differences(first.getV(), second.getV(), getV());
}

dLCHmgVector::dLCHmgVector(LABVector const& first, LABVector const& second) noexcept : ColorVector(first) {
    LABmgVector const firstMg{LCHmgVector(first)};
    LABmgVector const secondMg{LCHmgVector(second)};
    Differences(firstMg.getV(), secondMg.getV(), getV());
}

}  // namespace kv
