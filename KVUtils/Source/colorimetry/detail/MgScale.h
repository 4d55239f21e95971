// The mg scale, coordinate by coordinate. Lightness and chroma are the antiderivatives of the reciprocal
// CMC(l:c) weighting functions (BS 6923), so that equal steps in mg are equal CMC differences; hue is shifted
// by a fixed Fourier series that keeps 0 and 360.
#pragma once

namespace kv::detail {

/// L* [0, 100] to about [0, 112]; the two branches meet at 16.
[[nodiscard]] double LightnessToMg(double L) noexcept;
/// C* from 0 on; about 0 for 0.
[[nodiscard]] double ChromaToMg(double C) noexcept;
/// h in degrees to degrees.
[[nodiscard]] double HueToMg(double h) noexcept;

}  // namespace kv::detail
