// Between rectangular and polar components, for the constructors that use them.
#pragma once

#include "KVUtils/Source/colorimetry/detail/Angles.h"

#include <cmath>

namespace kv::detail {

/// (L, a, b) to (L, C, h), h in degrees above 0 up to 360. The hue of a and b both below 0.00001 is 360; that
/// of NaN is NaN.
inline void ToPolar(float const* rectangular, float* polar) noexcept {
    double const a = rectangular[1];
    double const b = rectangular[2];
    constexpr double achromatic = 0.00001;

    double h = 360;
    if (!(std::fabs(a) < achromatic && std::fabs(b) < achromatic)) {
        h = std::atan2(b, a) * DegreesPerRadian;
        if (!(h > 0)) h += 360;
    }
    polar[0] = rectangular[0];
    polar[1] = static_cast<float>(std::sqrt(a * a + b * b));
    polar[2] = static_cast<float>(h);
}

/// (L, C, h) to (L, a, b).
inline void ToRectangular(float const* polar, float* rectangular) noexcept {
    double const C = polar[1];
    double const h = polar[2];
    rectangular[0] = polar[0];
    rectangular[1] = static_cast<float>(C * CosDegrees(h));
    rectangular[2] = static_cast<float>(C * SinDegrees(h));
}

}  // namespace kv::detail
