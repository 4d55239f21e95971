#include "KVUtils/Source/plots/PlotWindow.h"

#include "KVUtils/Source/plots/detail/AutoScale.h"
#include "KVUtils/Source/plots/detail/PlotGeometry.h"

#include <utility>

namespace kv {

PlotWindow::PlotWindow(sv::Window* parent) : PlotWindow(parent, AxisText(), AxisText()) {}

PlotWindow::PlotWindow(sv::Window* parent, AxisText x, AxisText y)
    : Window(parent), diagram_(this), xText_(std::move(x)), yText_(std::move(y)) {
    if (parent != nullptr) ChangeBackgroundBrush(parent->GetBackgroundBrush());
}

void PlotWindow::Resize() {
    detail::CountUpward(*this);
    auto const [position, size] = detail::DiagramWithin(GetSizePixel());
    diagram_.SetPosSizePixel(position, size);
}

// The toolkit paints the diagram, a child window, after this one.
void PlotWindow::Paint(sv::Rectangle const& /*area*/) { CommonPaint(*this); }

void PlotWindow::CommonPaint(sv::OutputDevice& device) const {
    sv::Size const diagram = diagram_.GetSizePixel();
    auto const labels = [](AxisData const& axis, int extent, AxisText const& text) {
        return detail::TickLabels(axis, extent, text.GetDecimals());
    };
    // Text is measured on the window, whatever the device.
    for (auto const& label : labels(*diagram_.GetXAxisData(), diagram.Width(), xText_)) {
        device.DrawText(detail::XLabelPosition(label, GetTextSize(label.text).Width()), label.text);
    }
    device.DrawText(detail::XTitlePosition(diagram), xText_.GetTitle());
    for (auto const& label : labels(*diagram_.GetYAxisData(), diagram.Height(), yText_)) {
        device.DrawText(detail::YLabelPosition(label, GetTextSize(label.text).Width()), label.text);
    }
    device.DrawText(detail::YTitlePosition(diagram), yText_.GetTitle());
}

void PlotWindow::TakeX(AxisData const& axis, unsigned char setDecimals) {
    diagram_.ChangeXAxisData(axis);
    if (setDecimals != 0) xText_.SetDecimals(detail::LabelDecimals(axis));
    InvalidateAll();
}

void PlotWindow::TakeY(AxisData const& axis, unsigned char setDecimals) {
    diagram_.ChangeYAxisData(axis);
    if (setDecimals != 0) yText_.SetDecimals(detail::LabelDecimals(axis));
    InvalidateAll();
}

void PlotWindow::InvalidateAll() {
    Invalidate();
    diagram_.Invalidate();
}

void PlotWindow::XAutoScale(int curve, AutoScaleType type, unsigned char setDecimals) {
    if (Curve const* const data = GetCurve(curve)) TakeX(detail::AutoScaleX(*data, type), setDecimals);
}

void PlotWindow::YAutoScale(int curve, AutoScaleType type, unsigned char setDecimals) {
    if (Curve const* const data = GetCurve(curve)) TakeY(detail::AutoScaleY(*data, type), setDecimals);
}

void PlotWindow::YAutoScale(AutoScaleType type, unsigned char setDecimals) {
    TakeY(detail::AutoScaleY(*diagram_.GetCurveList(), type), setDecimals);
}

void PlotWindow::YAutoScale(unsigned char setDecimals) {
    TakeY(detail::AutoScaleY(*diagram_.GetCurveList()), setDecimals);
}

void PlotWindow::YMaxAutoScale(float minimum, unsigned char setDecimals) {
    TakeY(detail::AutoScaleYMax(*diagram_.GetCurveList(), minimum), setDecimals);
}

void PlotWindow::YScale(float minimum, float maximum, unsigned char setDecimals) {
    TakeY(detail::ScaleY(minimum, maximum), setDecimals);
}

}  // namespace kv
