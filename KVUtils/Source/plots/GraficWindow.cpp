#include "KVUtils/Source/plots/GraficWindow.h"

#include "KVUtils/Source/plots/PlotGeometry.h"

#include <cmath>

namespace kv {

namespace {

constexpr sv::Window::Style ChildStyle = 1;
constexpr int CrossArm = 3;
constexpr std::uint16_t WideWidth = 3;

constexpr sv::Point At(int x, int y) noexcept {
    return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)};
}

/// Another pen for a while.
class PenChange {
  public:
    PenChange(sv::OutputDevice& device, sv::Pen const& pen)
        : device_(device), before_(device.ChangePen(pen)) {}
    PenChange(PenChange const&) = delete;
    PenChange& operator=(PenChange const&) = delete;
    ~PenChange() { device_.ChangePen(before_); }

  private:
    sv::OutputDevice& device_;
    sv::Pen before_;
};

}  // namespace

GraficWindow::GraficWindow(sv::Window* parent) : GraficWindow(parent, AxisData(), AxisData()) {}

GraficWindow::GraficWindow(sv::Window* parent, AxisData const& x, AxisData const& y)
    : Window(parent, ChildStyle), x_(x), y_(y) {
    ChangeBackgroundBrush(sv::Brush(sv::ColorName::White));
    Show();
}

void GraficWindow::AddCurve(Curve const& curve) {
    curves_.push_back(std::make_unique<Curve>(curve));
    list_.Insert(curves_.back().get(), CurveList::End);
}

Curve* GraficWindow::GetCurve(int index) noexcept {
    return index < 0 ? nullptr : list_.GetObject(static_cast<unsigned long>(index));
}

void GraficWindow::DeleteAllCurve() noexcept {
    list_.Clear();
    curves_.clear();
}

void GraficWindow::SetCursor(float x, CursorType type, int curve) {
    cursorX_ = x;
    cursorType_ = type;
    cursorCurve_ = curve;
    Invalidate();
}

sv::Point GraficWindow::GetLogicToPixel(fPoint point) const noexcept {
    sv::Size const size = GetSizePixel();
    return {detail::LogicToPixel(x_, size.Width(), point.X()),
            detail::LogicToPixel(y_, size.Height(), point.Y())};
}

void detail::CountUpward(sv::Window& window) {
    sv::Point const origin(0, static_cast<std::int16_t>(-window.GetSizePixel().Height()));
    window.ChangeMapMode(sv::MapMode(sv::MapUnit::Pixel, origin, sv::Fraction(1.0), sv::Fraction(-1.0)));
}

void GraficWindow::Resize() { detail::CountUpward(*this); }

void GraficWindow::Paint(sv::Rectangle const& /*area*/) { CommonPaint(*this); }

void GraficWindow::CommonPaint(sv::OutputDevice& device) {
    DrawXAxis(device);
    DrawYAxis(device);
    for (unsigned long i = 0; i < list_.Count(); ++i) DrawCurve(device, *list_.GetObject(i));
    DrawCursor(device);
}

void GraficWindow::DrawXAxis(sv::OutputDevice& device) const {
    int const width = GetSizePixel().Width();
    int const line = y_.GetPixelOffset();
    if (line != 0) device.DrawLine(At(0, line), At(width, line));
    for (auto const& [position, halfLength] : detail::Ticks(x_, width)) {
        device.DrawLine(At(position, line - halfLength), At(position, line + halfLength));
    }
}

void GraficWindow::DrawYAxis(sv::OutputDevice& device) const {
    int const height = GetSizePixel().Height();
    int const line = x_.GetPixelOffset();
    if (line != 0) device.DrawLine(At(line, 0), At(line, height));
    for (auto const& [position, halfLength] : detail::Ticks(y_, height)) {
        device.DrawLine(At(line - halfLength, position), At(line + halfLength, position));
    }
}

void GraficWindow::DrawCurve(sv::OutputDevice& device, Curve const& curve) const {
    // Meant: a wide curve sets its pen and draws nothing.
    std::uint16_t const width = curve.GetCurveType() == DIAGRAM_WIDE ? WideWidth : 1;
    PenChange const pen(device, sv::Pen(curve.GetCurveColor(), width));
    sv::Point before;
    for (int i = 0; i < static_cast<int>(curve.Count()); ++i) {
        sv::Point const place = GetLogicToPixel(curve.GetPoint(i));
        int const x = place.X();
        int const y = place.Y();
        if (curve.GetCurveType() == DIAGRAM_CROSSES) {
            device.DrawLine(At(x - CrossArm, y), At(x + CrossArm, y));
            device.DrawLine(At(x, y - CrossArm), At(x, y + CrossArm));
        } else if (curve.GetCurveType() == DIAGRAM_LINE && i > 0) {
            device.DrawLine(before, place);
        }
        before = place;
    }
}

void GraficWindow::DrawCursor(sv::OutputDevice& device) {
    if (cursorType_ == CURSOR_NONE) return;
    sv::Size const size = GetSizePixel();
    if (cursorType_ == CURSOR_LINE) {
        PenChange const pen(device, sv::Pen(sv::Color(), 1, sv::PenStyle::Dash));
        int const x = GetLogicToPixel({cursorX_, 0}).X();
        device.DrawLine(At(x, 0), At(x, size.Height()));
        return;
    }
    Curve const* const curve = GetCurve(cursorCurve_);
    if (curve == nullptr) return;
    float const value = curve->GetFktVal(cursorX_);
    if (std::isnan(value)) return;
    sv::Point const place = GetLogicToPixel({cursorX_, value});
    int const x = place.X();
    int const y = place.Y();
    if (cursorType_ == CURSOR_MARKER) {
        PenChange const pen(device, sv::Pen(curve->GetCurveColor()));
        device.DrawRect({At(x - 4, y - 4), At(x + 3, y + 3)});
    } else if (cursorType_ == CURSOR_CROSS) {
        PenChange const pen(device, sv::Pen(curve->GetCurveColor(), 1, sv::PenStyle::Dash));
        device.DrawLine(At(x, 0), At(x, size.Height()));
        device.DrawLine(At(0, y), At(size.Width(), y));
    }
}

}  // namespace kv
