// GraficWindow: a plot without text: two axes with ticks, curves, and a cursor.
//
// Draws in pixels from the bottom left, y growing upward. Changing axes or curves does not repaint: call
// `Invalidate` or `SetCursor`, which does.
#pragma once

#include "KVUtils/Source/plots/AxisData.h"
#include "KVUtils/Source/plots/CurveList.h"
#include "KVUtils/Source/plots/fPoint.h"
#include "SV/core/Link.h"
#include "SV/ui/Window.h"

namespace kv {

class GraficWindow : public sv::Window {
  public:
    /// A white window in `parent`, shown at once.
    explicit GraficWindow(sv::Window* parent);
    GraficWindow(sv::Window* parent, AxisData const& x, AxisData const& y);
    ~GraficWindow() override;

    /// Appends a copy with points of its own.
    void AddCurve(Curve const& curve);
    /// Null past the last.
    [[nodiscard]] Curve* GetCurve(int index) noexcept;
    /// The window deletes the curves in the list.
    [[nodiscard]] CurveList* GetCurveList() noexcept { return &curves_; }
    void DeleteAllCurve() noexcept;

    void ChangeXAxisData(AxisData const& axis) noexcept { x_ = axis; }
    void ChangeYAxisData(AxisData const& axis) noexcept { y_ = axis; }
    [[nodiscard]] AxisData* GetXAxisData() noexcept { return &x_; }
    [[nodiscard]] AxisData* GetYAxisData() noexcept { return &y_; }
    [[nodiscard]] AxisData const* GetXAxisData() const noexcept { return &x_; }
    [[nodiscard]] AxisData const* GetYAxisData() const noexcept { return &y_; }

    /// `curve` is the index of the curve that a marker or cross is drawn on; `x` must then be the X of one of
    /// its points. Without such a curve or point no cursor shows.
    void SetCursor(float x, CursorType type, int curve);

    /// The pixel of a point, which may lie outside. With a range of 0 or a reversed one all values are at the
    /// pixel offset.
    [[nodiscard]] sv::Point GetLogicToPixel(fPoint point) const noexcept;

    /// Called with the window when the pointer moves over it. Returns the previous link.
    sv::Link ChangePointerHdl(sv::Link const& link) noexcept;
    /// The last position of the pointer, as a value on the X axis.
    [[nodiscard]] float GetPointerX() const noexcept { return pointerX_; }

    void Resize() override;
    void MouseMove(sv::MouseEvent const& event) override;
    /// Draws the whole plot, whatever the area.
    void Paint(sv::Rectangle const& area) override;

  private:
    void CommonPaint(sv::OutputDevice& device);
    void DrawXAxis(sv::OutputDevice& device) const;
    void DrawYAxis(sv::OutputDevice& device) const;
    void DrawCurve(sv::OutputDevice& device, Curve const& curve) const;
    void DrawCursor(sv::OutputDevice& device);

    float cursorX_ = 0;
    CursorType cursorType_ = CURSOR_NONE;
    int cursorCurve_ = 0;
    float pointerX_ = 0;
    sv::Link pointer_;
    CurveList curves_;  // owned, also those that a caller inserts
    AxisData x_;
    AxisData y_;
};

namespace detail {

/// Makes a window count its pixels from the bottom left, y growing upward.
void CountUpward(sv::Window& window);

}  // namespace detail

}  // namespace kv
