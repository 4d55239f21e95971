#include "SV/ui/OutputDevice.h"

#include "SV/ui/Canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sv {

namespace {

/// Wraps, as pixels do; 0 if the value is not finite.
int ToPixel(double value) noexcept {
    constexpr double Round = 65536;
    return std::isfinite(value) ? static_cast<int>(std::fmod(std::trunc(value), Round)) : 0;
}

/// Of a screen with 96 pixels per inch.
constexpr double ScreenPixelsPerTenthMillimetre = 96.0 / 254.0;

/// Scales the size of a pen or a letter; at least 1 if it was.
int ToPixels(int length, double scale) noexcept {
    return length == 0 ? 0 : std::max(1, ToPixel(std::round(length * scale)));
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

double OutputDevice::PixelsPerTenthMillimetre() const noexcept { return ScreenPixelsPerTenthMillimetre; }

double OutputDevice::PixelsPerUnit() const noexcept {
    return mapMode_.GetMapUnit() == MapUnit::TenthMillimetre ? PixelsPerTenthMillimetre() : 1.0;
}

Pen OutputDevice::PixelPen() const noexcept {
    Pen pen = pen_;
    pen.ChangeWidth(static_cast<std::uint16_t>(ToPixels(std::max<int>(pen.GetWidth(), 1), PixelsPerUnit())));
    return pen;
}

Font OutputDevice::PixelFont() const noexcept {
    Font font = font_;
    font.ChangeSize(
        {ToPixels(font.GetWidth(), PixelsPerUnit()), ToPixels(font.GetHeight(), PixelsPerUnit())});
    return font;
}

Point OutputDevice::LogicToPixel(Point point) const noexcept {
    double const unit = PixelsPerUnit();
    return {ToPixel((point.X() + mapMode_.GetOrigin().X()) * mapMode_.GetScaleX() * unit),
            ToPixel((point.Y() + mapMode_.GetOrigin().Y()) * mapMode_.GetScaleY() * unit)};
}

Point OutputDevice::PixelToLogic(Point pixel) const noexcept {
    Size const distance = PixelToLogic(Size(pixel.X(), pixel.Y()));
    return Point(distance.Width(), distance.Height()) - mapMode_.GetOrigin();
}

Size OutputDevice::PixelToLogic(Size pixels) const noexcept {
    double const unit = PixelsPerUnit();
    return {ToPixel(pixels.Width() / (mapMode_.GetScaleX() * unit)),
            ToPixel(pixels.Height() / (mapMode_.GetScaleY() * unit))};
}

void OutputDevice::DrawLine(Point from, Point to) {
    GetCanvas().Line(LogicToPixel(from), LogicToPixel(to), PixelPen());
}

void OutputDevice::DrawRect(Rectangle const& area, unsigned short roundingX, unsigned short roundingY) {
    Point const a = LogicToPixel(area.TopLeft());
    Point const b = LogicToPixel(area.BottomRight());
    Rectangle const ordered({std::min(a.X(), b.X()), std::min(a.Y(), b.Y())},
                            {std::max(a.X(), b.X()), std::max(a.Y(), b.Y())});
    Size const rounding(ToPixels(roundingX, PixelsPerUnit()), ToPixels(roundingY, PixelsPerUnit()));
    GetCanvas().Rect(ordered, rounding, PixelPen(), fillIn_);
}

void OutputDevice::DrawText(Point place, String const& text) {
    Point corner = LogicToPixel(place);
    Font const font = PixelFont();
    if (mapMode_.IsUpward()) corner = corner - Point(0, GetCanvas().TextSize(text, font).Height());
    GetCanvas().Text(corner, text, font);
}

void OutputDevice::DrawBitmap(Point topLeft, Bitmap const& bitmap) {
    Size const size = bitmap.GetSizePixel();
    double const unit = PixelsPerUnit();
    Size const pixels(ToPixels(size.Width(), unit), ToPixels(size.Height(), unit));
    GetCanvas().Image(Rectangle::Of(LogicToPixel(topLeft), pixels), bitmap);
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

Size OutputDevice::GetTextSize(String const& text) const {
    Size const pixels = GetCanvas().TextSize(text, PixelFont());
    double const unit = PixelsPerUnit();
    return {ToPixel(std::ceil(pixels.Width() / unit)), ToPixel(std::ceil(pixels.Height() / unit))};
}

}  // namespace sv
