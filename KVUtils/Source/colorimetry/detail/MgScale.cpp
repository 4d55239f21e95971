#include "KVUtils/Source/colorimetry/detail/MgScale.h"

#include "KVUtils/Source/colorimetry/detail/Angles.h"

#include <cmath>

namespace kv::detail {

double LightnessToMg(double L) noexcept {
    if (L < 16) return L * 1.9569471624266144;
    return (std::log(L * 0.040975) + L * 0.01765) * 24.405125076266017 + 34.7231;
}

double ChromaToMg(double C) noexcept {
    return 12.253 * std::log(C * 0.072158 + 0.638) + C * 0.181547 + 5.50671;
}

double HueToMg(double h) noexcept {
    double const r = h * RadiansPerDegree;
    double const radians = 0.13893 * std::sin(r) -
                           (0.0539 * std::sin(2 * r) + 0.04029 * std::sin(3 * r) + 0.02137 * std::cos(3 * r) +
                            0.06742 * std::cos(2 * r)) -
                           0.01043 * std::sin(4 * r) - 0.09622 * std::cos(r) + 0.00587 * std::cos(4 * r) + r +
                           0.17914;
    return radians * 180 * OneOverPi;
}

}  // namespace kv::detail
