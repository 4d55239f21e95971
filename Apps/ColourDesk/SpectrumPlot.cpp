#include "Apps/ColourDesk/SpectrumPlot.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "KVUtils/Source/metrics/ColorConverter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace colourdesk {

namespace {

constexpr float FirstWavelength = 380;
constexpr float LastWavelength = 730;
constexpr float WavelengthStep = 10;
constexpr float LabelStep = 50;

/// Relative luminance of an sRGB colour (IEC 61966-2-1), 0 to 1.
double LuminanceOf(sv::Color color) noexcept {
    auto const linear = [](std::uint16_t channel) {
        double const v = channel / 65535.0;
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.GetRed()) + 0.7152 * linear(color.GetGreen()) +
           0.0722 * linear(color.GetBlue());
}

/// Of two colours of which the lighter is white.
double ContrastToWhite(sv::Color color) noexcept { return 1.05 / (LuminanceOf(color) + 0.05); }

sv::Color Darkened(sv::Color color) noexcept {
    auto const darker = [](std::uint16_t channel) { return static_cast<std::uint16_t>(channel * 9 / 10); };
    return {darker(color.GetRed()), darker(color.GetGreen()), darker(color.GetBlue())};
}

}  // namespace

sv::Color Legible(sv::Color color) noexcept {
    constexpr double LeastContrast = 3;  // what a line takes to be seen (WCAG 2.1, non-text contrast)
    while (ContrastToWhite(color) < LeastContrast) color = Darkened(color);
    return color;
}

SpectrumPlot::SpectrumPlot(sv::Window* parent) : PlotWindow(parent) {
    ChangeXAxisData(kv::AxisData(FirstWavelength, LastWavelength, LabelStep, 4));
    ChangePointerHdl(sv::Link::To<&SpectrumPlot::PointerHdl>(*this));
    TakeTexts();
    Scale();
}

void SpectrumPlot::TakeTexts() {
    ChangeXAxisText(kv::AxisText(TextOf(Label::Wavelength), 0));
    ChangeYAxisText(kv::AxisText(TextOf(Label::Reflectance), GetYAxisText().GetDecimals()));
    Invalidate();
}

void SpectrumPlot::ShowSamples(measurements::MeasurementFile const& file, std::span<int const> samples) {
    DeleteAllCurve();
    curves_ = static_cast<int>(std::min(samples.size(), MostCurves));
    for (int const sample : samples.first(static_cast<std::size_t>(curves_))) {
        kv::Spectrum const& spectrum = file.samples[static_cast<std::size_t>(sample)].spectrum;
        std::array<float, kv::SpectralPoints> values{};
        for (int i = 0; i < kv::SpectralPoints; ++i) values[static_cast<std::size_t>(i)] = spectrum[i];
        AddCurve(kv::Curve(FirstWavelength, LastWavelength, values.data(), kv::SpectralPoints,
                           Legible(kv::ColorConverter::SpectrumToColor(spectrum)), kv::DIAGRAM_LINE));
    }
    Scale();
    if (cursor_) PutCursor(*cursor_);
}

void SpectrumPlot::ShowNothing() { ShowSamples({}, {}); }

void SpectrumPlot::SetAutoScale(bool isOn) {
    isAutoScale_ = isOn;
    Scale();
}

void SpectrumPlot::Scale() {
    if (isAutoScale_ && curves_ > 0) {
        YMaxAutoScale(0, 1);
    } else {
        YScale(0, 1, 1);
        GetYAxisData()->SetStep(0.2F);
    }
}

void SpectrumPlot::PutCursor(int index) {
    cursor_ = std::clamp(index, 0, kv::SpectralPoints - 1);
    // One curve's values can be read at a cross.
    SetCursor(FirstWavelength + WavelengthStep * static_cast<float>(*cursor_),
              curves_ == 1 ? kv::CURSOR_CROSS : kv::CURSOR_LINE, 0);
}

void SpectrumPlot::MoveCursor(int steps) {
    PutCursor(cursor_.value_or(0) + steps);
    cursorMoved_.Call(this);
}

sv::Link SpectrumPlot::ChangeCursorHdl(sv::Link const& link) noexcept {
    return std::exchange(cursorMoved_, link);
}

long SpectrumPlot::PointerHdl(kv::GraficWindow* /*sender*/) {
    int const index = static_cast<int>(std::lround((GetPointerX() - FirstWavelength) / WavelengthStep));
    if (cursor_ == std::clamp(index, 0, kv::SpectralPoints - 1)) return 0;
    PutCursor(index);
    cursorMoved_.Call(this);
    return 0;
}

}  // namespace colourdesk
