// The CIELAB function and its inverse, for the constructors that use them (CIE 15).
#pragma once

#include "KVUtils/Source/colorimetry/ColorVector.h"

#include <array>
#include <cmath>

namespace kv::detail {

/// f(t) of a ratio to the white, t rounded to `float`. The limit is a `float` too: a t of exactly that value
/// takes the linear branch, and so does a negative one.
[[nodiscard]] inline double RatioToRoot(float t) noexcept {
    constexpr float limit = 0.008856F;
    return t > limit ? std::pow(double{t}, 0.3333333333333333) : 7.787 * t + 0.13793103448275862;
}

/// L*, a*, b* from the f of X, Y and Z.
inline void RootsToLab(std::array<double, 3> const& f, float* lab) noexcept {
    lab[0] = static_cast<float>(116 * f[1] - 16);
    lab[1] = static_cast<float>(500 * (f[0] - f[1]));
    lab[2] = static_cast<float>(200 * (f[1] - f[2]));
}

/// The f of X, Y and Z from L*, a*, b*.
[[nodiscard]] inline std::array<double, 3> LabToRoots(ColorVector const& lab) noexcept {
    double const f1 = (double{lab[0]} + 16) * double{0.00862069F};
    double const f0 = double{lab[1]} * double{0.002F} + f1;
    double const f2 = f1 - double{lab[2]} * double{0.005F};
    return {f0, f1, f2};
}

/// The tristimulus value that has this f, in units of its white.
[[nodiscard]] inline double RootToRatio(double f, float white) noexcept {
    return f > 0.206893034423 ? std::pow(f, 3.0) * white
                              : (f - 0.13793103448275862) * white * 0.1284191601386927;
}

}  // namespace kv::detail
