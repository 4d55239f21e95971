#include "Apps/report/SpectrumCurve.h"

#include "KVUtils/Source/metrics/ColorConverter.h"

#include <cmath>

namespace report {

namespace {

/// Relative luminance of an sRGB colour (IEC 61966-2-1), 0 to 1.
double LuminanceOf(sv::Color color) noexcept {
    auto const linear = [](std::uint16_t channel) {
        double const v = channel / 65535.0;
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.GetRed()) + 0.7152 * linear(color.GetGreen()) +
           0.0722 * linear(color.GetBlue());
}

/// Contrast of a colour on white (WCAG 2.1).
double ContrastToWhite(sv::Color color) noexcept { return 1.05 / (LuminanceOf(color) + 0.05); }

sv::Color Darkened(sv::Color color) noexcept {
    auto const darker = [](std::uint16_t channel) { return static_cast<std::uint16_t>(channel * 9 / 10); };
    return {darker(color.GetRed()), darker(color.GetGreen()), darker(color.GetBlue())};
}

}  // namespace

sv::Color Legible(sv::Color color) noexcept {
    constexpr double MinContrast = 3;  // of graphical objects (WCAG 2.1, non-text contrast)
    while (ContrastToWhite(color) < MinContrast) color = Darkened(color);
    return color;
}

sv::Color CurveColor(kv::Spectrum const& spectrum) noexcept {
    return Legible(kv::ColorConverter::SpectrumToColor(spectrum));
}

kv::Curve CurveOf(kv::Spectrum const& spectrum) {
    return {kv::FirstWavelength, kv::LastWavelength,   spectrum,
            kv::SpectralPoints,  CurveColor(spectrum), kv::DIAGRAM_LINE};
}

kv::AxisData WavelengthAxis() noexcept {
    constexpr float LabelStep = 50;
    return {kv::FirstWavelength, kv::LastWavelength, LabelStep, 4};
}

}  // namespace report
