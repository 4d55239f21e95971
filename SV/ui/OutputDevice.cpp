#include "SV/ui/OutputDevice.h"

#include "SV/ui/Canvas.h"

#include <cmath>
#include <utility>

namespace sv {

namespace {

/// Wraps round at any size, as pixels do; 0 for a scale without end.
int ToPixel(double value) noexcept {
    constexpr double Round = 65536;
    return std::isfinite(value) ? static_cast<int>(std::fmod(std::trunc(value), Round)) : 0;
}

}  // namespace

Pen OutputDevice::ChangePen(Pen const& pen) noexcept { return std::exchange(pen_, pen); }
Brush OutputDevice::ChangeFillInBrush(Brush const& brush) noexcept { return std::exchange(fillIn_, brush); }
Brush OutputDevice::ChangeBackgroundBrush(Brush const& brush) noexcept {
    return std::exchange(background_, brush);
}
Font OutputDevice::ChangeFont(Font const& font) noexcept { return std::exchange(font_, font); }
MapMode OutputDevice::ChangeMapMode(MapMode const& mapMode) noexcept {
    return std::exchange(mapMode_, mapMode);
}

Point OutputDevice::LogicToPixel(Point point) const noexcept {
    return {ToPixel((point.X() + mapMode_.GetOrigin().X()) * mapMode_.GetScaleX()),
            ToPixel((point.Y() + mapMode_.GetOrigin().Y()) * mapMode_.GetScaleY())};
}

void OutputDevice::DrawLine(Point from, Point to) {
    GetCanvas().Line(LogicToPixel(from), LogicToPixel(to), pen_);
}

void OutputDevice::DrawRect(Rectangle const& area, unsigned short roundingX, unsigned short roundingY) {
    Point const a = LogicToPixel(area.TopLeft());
    Point const b = LogicToPixel(area.BottomRight());
    Rectangle const ordered({std::min(a.X(), b.X()), std::min(a.Y(), b.Y())},
                            {std::max(a.X(), b.X()), std::max(a.Y(), b.Y())});
    Size const rounding(roundingX, roundingY);
    GetCanvas().Rect(ordered, rounding, pen_, fillIn_);
}

void OutputDevice::DrawText(Point place, String const& text) {
    Point corner = LogicToPixel(place);
    if (mapMode_.IsUpward()) corner = corner - Point(0, GetTextSize(text).Height());
    GetCanvas().Text(corner, text, font_);
}

void OutputDevice::DrawBitmap(Point topLeft, Bitmap const& bitmap) {
    GetCanvas().Image(LogicToPixel(topLeft), bitmap);
}

void OutputDevice::DrawPixel(Point place, Color color) { GetCanvas().Pixel(LogicToPixel(place), color); }

void OutputDevice::Erase() {
    if (background_.GetStyle() != BrushStyle::None) GetCanvas().Clear(background_.GetColor());
}

Color OutputDevice::GetPixel(Point place) const {
    Point const pixel = LogicToPixel(place);
    return GetCanvas().Copy({pixel, pixel}).At(0, 0).ToColor();
}

Bitmap OutputDevice::GetBitmap(Point topLeft, Size size) const {
    if (size.Width() <= 0 || size.Height() <= 0) return {};
    return GetCanvas().Copy(Rectangle::Of(LogicToPixel(topLeft), size));
}

Size OutputDevice::GetTextSize(String const& text) const { return GetCanvas().TextSize(text, font_); }

}  // namespace sv
