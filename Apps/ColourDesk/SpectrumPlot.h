// SpectrumPlot: the reflectance of selected patches over the wavelength, with a cursor that follows the
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
    /// More curves cannot be told apart.
    static constexpr std::size_t MaxCurves = 40;

    explicit SpectrumPlot(sv::Window* parent);

    /// Replaces the curves by those of the first `MaxCurves` samples.
    void ShowSamples(files::MeasurementFile const& file, std::span<int const> samples);
    void ShowNothing();
    void UpdateTexts();

    /// Scales the axis from 0 to the highest curve; else from 0 to 1.
    void SetAutoScale(bool isOn);
    [[nodiscard]] bool IsAutoScale() const noexcept { return isAutoScale_; }

    /// The index of the wavelength under the cursor; empty before the cursor has been moved.
    [[nodiscard]] std::optional<int> GetCursorIndex() const noexcept { return cursor_; }
    /// Moves the cursor to the right by so many wavelengths, to the ends of the plot at most.
    void MoveCursor(int steps);
    /// Called when the cursor has moved. Returns the previous link.
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
