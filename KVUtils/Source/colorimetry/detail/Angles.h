// The constants of angle of the colour code. Pi is 3.1415926 and every constant follows from it; more exact
// ones would change results that files and reports already hold.
#pragma once

#include <cmath>

namespace kv::detail {

inline constexpr double Pi = 3.1415926;
inline constexpr double RadiansPerDegree = 0.017453292222222222;
inline constexpr double DegreesPerRadian = 57.295780490442965;
inline constexpr double OneOverPi = 0.31830989161357204;

[[nodiscard]] inline double SinDegrees(double degrees) noexcept {
    return std::sin(degrees * RadiansPerDegree);
}
[[nodiscard]] inline double CosDegrees(double degrees) noexcept {
    return std::cos(degrees * RadiansPerDegree);
}

}  // namespace kv::detail
