#include "KVUtils/Source/plots/GraficWindow.h"

#include "KVUtils/Source/plots/detail/PlotGeometry.h"
#include "SV/ui/Styles.h"

#include <cmath>
#include <memory>
#include <utility>

namespace kv {

namespace {

constexpr int CrossArm = 3;
constexpr std::uint16_t WideWidth = 3;

/// Changes the pen for a scope.
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
    : Window(parent, sv::StyleOfChild), x_(x), y_(y) {
    ChangeBackgroundBrush(sv::Brush(sv::ColorName::White));
    Show();
}

GraficWindow::~GraficWindow() { DeleteAllCurve(); }

void GraficWindow::AddCurve(Curve const& curve) {
    auto copy = std::make_unique<Curve>(curve);
    curves_.Insert(copy.get(), CurveList::End);
    static_cast<void>(copy.release());
}

Curve* GraficWindow::GetCurve(int index) noexcept {
    return index < 0 ? nullptr : curves_.GetObject(static_cast<unsigned long>(index));
}

void GraficWindow::DeleteAllCurve() noexcept {
    for (unsigned long i = 0; i < curves_.Count(); ++i) delete curves_.GetObject(i);
    curves_.Clear();
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
    sv::Point const origin(0, -window.GetSizePixel().Height());
    window.ChangeMapMode(sv::MapMode(sv::MapUnit::Pixel, origin, sv::Fraction(1.0), sv::Fraction(-1.0)));
}

sv::Link GraficWindow::ChangePointerHdl(sv::Link const& link) noexcept {
    return std::exchange(pointer_, link);
}

void GraficWindow::MouseMove(sv::MouseEvent const& event) {
    pointerX_ = detail::PixelToLogic(x_, GetSizePixel().Width(), event.GetPosPixel().X());
    pointer_.Call(this);
}

void GraficWindow::Resize() { detail::CountUpward(*this); }

void GraficWindow::Paint(sv::Rectangle const& /*area*/) { CommonPaint(*this); }

void GraficWindow::CommonPaint(sv::OutputDevice& device) {
    DrawXAxis(device);
    DrawYAxis(device);
    for (unsigned long i = 0; i < curves_.Count(); ++i) DrawCurve(device, *curves_.GetObject(i));
    DrawCursor(device);
}

void GraficWindow::DrawXAxis(sv::OutputDevice& device) const {
    int const width = GetSizePixel().Width();
    int const line = y_.GetPixelOffset();
    if (line != 0) device.DrawLine({0, line}, {width, line});
    for (auto const& [position, halfLength] : detail::Ticks(x_, width)) {
        device.DrawLine({position, line - halfLength}, {position, line + halfLength});
    }
}

void GraficWindow::DrawYAxis(sv::OutputDevice& device) const {
    int const height = GetSizePixel().Height();
    int const line = x_.GetPixelOffset();
    if (line != 0) device.DrawLine({line, 0}, {line, height});
    for (auto const& [position, halfLength] : detail::Ticks(y_, height)) {
        device.DrawLine({line - halfLength, position}, {line + halfLength, position});
    }
}

void GraficWindow::DrawCurve(sv::OutputDevice& device, Curve const& curve) const {
    // Intentional: a wide curve sets its pen and draws nothing.
    std::uint16_t const width = curve.GetCurveType() == DIAGRAM_WIDE ? WideWidth : 1;
    PenChange const pen(device, sv::Pen(curve.GetCurveColor(), width));
    sv::Point before;
    for (int i = 0; i < static_cast<int>(curve.Count()); ++i) {
        sv::Point const place = GetLogicToPixel(curve.GetPoint(i));
        int const x = place.X();
        int const y = place.Y();
        if (curve.GetCurveType() == DIAGRAM_CROSSES) {
            device.DrawLine({x - CrossArm, y}, {x + CrossArm, y});
            device.DrawLine({x, y - CrossArm}, {x, y + CrossArm});
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
        device.DrawLine({x, 0}, {x, size.Height()});
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
        device.DrawRect({{x - 4, y - 4}, {x + 3, y + 3}});
    } else if (cursorType_ == CURSOR_CROSS) {
        PenChange const pen(device, sv::Pen(curve->GetCurveColor(), 1, sv::PenStyle::Dash));
        device.DrawLine({x, 0}, {x, size.Height()});
        device.DrawLine({0, y}, {size.Width(), y});
    }
}

}  // namespace kv
