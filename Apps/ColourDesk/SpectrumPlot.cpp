#include "Apps/ColourDesk/SpectrumPlot.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/report/SpectrumCurve.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace colourdesk {

SpectrumPlot::SpectrumPlot(sv::Window* parent) : PlotWindow(parent) {
    ChangeXAxisData(report::WavelengthAxis());
    ChangePointerHdl(sv::Link::To<&SpectrumPlot::PointerHdl>(*this));
    UpdateTexts();
    Scale();
}

void SpectrumPlot::UpdateTexts() {
    ChangeXAxisText(kv::AxisText(TextOf(Label::Wavelength), 0));
    ChangeYAxisText(kv::AxisText(TextOf(Label::Reflectance), GetYAxisText().GetDecimals()));
    Invalidate();
}

void SpectrumPlot::ShowSamples(files::MeasurementFile const& file, std::span<int const> samples) {
    DeleteAllCurve();
    curves_ = static_cast<int>(std::min(samples.size(), MaxCurves));
    for (int const sample : samples.first(static_cast<std::size_t>(curves_))) {
        AddCurve(report::CurveOf(file.samples[static_cast<std::size_t>(sample)].spectrum));
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
    // A cross marks the value of a single curve.
    SetCursor(static_cast<float>(kv::Wavelength(*cursor_)), curves_ == 1 ? kv::CURSOR_CROSS : kv::CURSOR_LINE,
              0);
}

void SpectrumPlot::MoveCursor(int steps) {
    PutCursor(cursor_.value_or(0) + steps);
    cursorMoved_.Call(this);
}

sv::Link SpectrumPlot::ChangeCursorHdl(sv::Link const& link) noexcept {
    return std::exchange(cursorMoved_, link);
}

long SpectrumPlot::PointerHdl(kv::GraficWindow* /*sender*/) {
    int const index =
        static_cast<int>(std::lround((GetPointerX() - kv::FirstWavelength) / kv::WavelengthStep));
    if (cursor_ == std::clamp(index, 0, kv::SpectralPoints - 1)) return 0;
    PutCursor(index);
    cursorMoved_.Call(this);
    return 0;
}

}  // namespace colourdesk
