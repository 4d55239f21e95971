// PlotWindow: a diagram with the labels and titles of its axes, and axes that fit the data.
#pragma once

#include "KVUtils/Source/plots/GraficWindow.h"

namespace kv {

class PlotWindow : public sv::Window {
  public:
    /// With the background of `parent`. The texts are empty at first.
    explicit PlotWindow(sv::Window* parent);
    PlotWindow(sv::Window* parent, AxisText x, AxisText y);

    // These do not repaint.
    void ChangeXAxisText(AxisText const& text) { xText_ = text; }
    void ChangeYAxisText(AxisText const& text) { yText_ = text; }
    [[nodiscard]] AxisText const& GetXAxisText() const noexcept { return xText_; }
    [[nodiscard]] AxisText const& GetYAxisText() const noexcept { return yText_; }
    void ChangeXAxisData(AxisData const& axis) noexcept { diagram_.ChangeXAxisData(axis); }
    void ChangeYAxisData(AxisData const& axis) noexcept { diagram_.ChangeYAxisData(axis); }
    [[nodiscard]] AxisData* GetXAxisData() noexcept { return diagram_.GetXAxisData(); }
    [[nodiscard]] AxisData* GetYAxisData() noexcept { return diagram_.GetYAxisData(); }
    void AddCurve(Curve const& curve) { diagram_.AddCurve(curve); }
    [[nodiscard]] Curve* GetCurve(int index) noexcept { return diagram_.GetCurve(index); }
    void DeleteAllCurve() noexcept { diagram_.DeleteAllCurve(); }

    /// As for `GraficWindow`.
    void SetCursor(float x, CursorType type, int curve) { diagram_.SetCursor(x, type, curve); }

    /// As for `GraficWindow`; the sender is the diagram.
    sv::Link ChangePointerHdl(sv::Link const& link) noexcept { return diagram_.ChangePointerHdl(link); }
    [[nodiscard]] float GetPointerX() const noexcept { return diagram_.GetPointerX(); }

    // Each replaces an axis by one from the data, widened by 5 percent, and repaints. With `setDecimals`
    // other than 0 the labels get as many decimals as distinguish them. An index without a curve changes
    // nothing.
    void XAutoScale(int curve, AutoScaleType type, unsigned char setDecimals);
    void YAutoScale(int curve, AutoScaleType type, unsigned char setDecimals);
    /// From all curves.
    void YAutoScale(AutoScaleType type, unsigned char setDecimals);
    /// From the highest curve alone: the others may extend below the axis.
    void YAutoScale(unsigned char setDecimals);
    /// From the maximum of all curves and a given minimum.
    void YMaxAutoScale(float minimum, unsigned char setDecimals);
    void YScale(float minimum, float maximum, unsigned char setDecimals);

    void Resize() override;
    void Paint(sv::Rectangle const& area) override;

  private:
    void CommonPaint(sv::OutputDevice& device) const;
    void TakeX(AxisData const& axis, unsigned char setDecimals);
    void TakeY(AxisData const& axis, unsigned char setDecimals);
    /// The two windows: this one and the diagram.
    void InvalidateAll();

    GraficWindow diagram_;
    AxisText xText_;
    AxisText yText_;
};

}  // namespace kv
