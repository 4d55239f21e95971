// CurveColor: the colour in which the spectrum of a patch is drawn.
#pragma once

#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "SV/core/Color.h"

namespace measurements {

/// A colour in which a line on white can be seen: darkened, if need be, until its contrast is 3.
[[nodiscard]] sv::Color Legible(sv::Color color) noexcept;

/// The patch's own colour on a display, legible.
[[nodiscard]] sv::Color CurveColor(kv::Spectrum const& spectrum) noexcept;

}  // namespace measurements
