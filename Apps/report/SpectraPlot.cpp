#include "Apps/report/SpectraPlot.h"

#include "Apps/report/SpectrumCurve.h"
#include "KVUtils/Source/plots/PlotWindow.h"

#include <algorithm>

namespace report {

namespace {

/// In tenths of a millimetre. Letters and ticks are then as large as in the table.
constexpr int PixelSize = 2;

/// From 0 to 1, or further in steps for fluorescent samples.
kv::AxisData ReflectanceAxis(float highest) {
    constexpr float Step = 0.2F;
    float top = 1;
    while (top < highest) top += Step;
    return {0, top, Step, 1};
}

/// Adds a line at the origin of the other axis.
kv::AxisData WithLine(kv::AxisData axis) {
    axis.SetPixelOffset(1);
    return axis;
}

}  // namespace

void DrawSpectra(sv::OutputDevice& device, sv::Rectangle const& area, files::MeasurementFile const& file,
                 std::span<std::size_t const> samples, PlotTitles const& titles) {
    kv::PlotWindow plot(nullptr, kv::AxisText(titles.wavelength, 0), kv::AxisText(titles.reflectance, 1));
    plot.ChangeSizePixel({area.GetSize().Width() / PixelSize, area.GetSize().Height() / PixelSize});
    float highest = 0;
    for (std::size_t const index : samples) {
        if (index >= file.samples.size()) continue;
        plot.AddCurve(report::CurveOf(file.samples[index].spectrum));
        highest = std::max(highest, file.samples[index].spectrum.Maximum());
    }
    plot.ChangeXAxisData(WithLine(report::WavelengthAxis()));
    plot.ChangeYAxisData(WithLine(ReflectanceAxis(highest)));
    plot.PrintOn(device, area);
}

}  // namespace report
