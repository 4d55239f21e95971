// SpectrumPlot: the reflectances of selected patches over the wavelength, with a cursor that follows the
// pointer.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "KVUtils/Source/plots/PlotWindow.h"

#include <optional>
#include <span>
#include <vector>

namespace colourdesk {

class SpectrumPlot : public kv::PlotWindow {
  public:
    /// More lines tell nobody anything.
    static constexpr std::size_t MostCurves = 40;

    explicit SpectrumPlot(sv::Window* parent);

    /// In place of the curves before, the first ones of many.
    void ShowSamples(files::MeasurementFile const& file, std::span<int const> samples);
    void ShowNothing();
    void TakeTexts();

    /// From 0 to the highest curve; else to 1, the perfect white.
    void SetAutoScale(bool isOn);
    [[nodiscard]] bool IsAutoScale() const noexcept { return isAutoScale_; }

    /// The index of the wavelength under the cursor; none as long as nobody has put it anywhere.
    [[nodiscard]] std::optional<int> GetCursorIndex() const noexcept { return cursor_; }
    /// By so many wavelengths to the right; stays in the plot.
    void MoveCursor(int steps);
    /// The cursor has moved. Returns the link before.
    sv::Link ChangeCursorHdl(sv::Link const& link) noexcept;

  private:
    void Scale();
    void PutCursor(int index);
    long PointerHdl(kv::GraficWindow* sender);

    bool isAutoScale_ = true;
    std::optional<int> cursor_;
    int curves_ = 0;
    sv::Link cursorMoved_;
};

}  // namespace colourdesk
