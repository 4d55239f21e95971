// SpectrumCurve: how the spectrum of a patch is drawn.
#pragma once

#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "KVUtils/Source/plots/AxisData.h"
#include "KVUtils/Source/plots/Curve.h"
#include "SV/core/Color.h"

namespace report {

/// A colour in which a line on white can be seen: darkened, if need be, until its contrast is 3.
[[nodiscard]] sv::Color Legible(sv::Color color) noexcept;

/// The patch's own colour on a display, legible.
[[nodiscard]] sv::Color CurveColor(kv::Spectrum const& spectrum) noexcept;
/// The reflectances over the wavelengths in nm, as a line of that colour.
[[nodiscard]] kv::Curve CurveOf(kv::Spectrum const& spectrum);
/// The axis that such curves have in every plot.
[[nodiscard]] kv::AxisData WavelengthAxis() noexcept;

}  // namespace report
