// SpectrumCurve: the curve of a patch's spectrum.
#pragma once

#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "KVUtils/Source/plots/AxisData.h"
#include "KVUtils/Source/plots/Curve.h"
#include "SV/core/Color.h"

namespace report {

/// Darkens a colour until its contrast to white is at least 3, so that a line on white is visible.
[[nodiscard]] sv::Color Legible(sv::Color color) noexcept;

/// The patch's legible colour on a display.
[[nodiscard]] sv::Color CurveColor(kv::Spectrum const& spectrum) noexcept;
/// Reflectance over the wavelength in nm, in that colour.
[[nodiscard]] kv::Curve CurveOf(kv::Spectrum const& spectrum);
/// The axis of wavelengths for all plots of such curves.
[[nodiscard]] kv::AxisData WavelengthAxis() noexcept;

}  // namespace report
