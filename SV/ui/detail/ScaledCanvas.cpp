#include "SV/ui/detail/ScaledCanvas.h"

#include <algorithm>
#include <cmath>

namespace sv::detail {

namespace {

/// The height of a line in the system's font, in pixels of a window.
constexpr int SystemLineHeight = 16;

int Scaled(double length, double scale) noexcept { return static_cast<int>(std::lround(length * scale)); }

double Ratio(int length, int of) noexcept { return of > 0 ? static_cast<double>(length) / of : 0.0; }

/// At least 1.
std::uint16_t ScaledWidth(std::uint16_t width, double scale) noexcept {
    return static_cast<std::uint16_t>(std::max(1, Scaled(std::max<int>(width, 1), scale)));
}

/// The part of a line, from 0 at its start to 1 at its end, that lies on a surface.
class Extent {
  public:
    /// Clips the line at an edge. `distance` is that from the start to the edge, `speed` the component of the
    /// line towards the edge.
    void Cut(double speed, double distance) noexcept {
        if (speed > 0) {
            end_ = std::min(end_, distance / speed);
        } else if (speed < 0) {
            start_ = std::max(start_, distance / speed);
        } else if (distance < 0) {
            end_ = -1;
        }
    }
    [[nodiscard]] bool IsEmpty() const noexcept { return end_ < start_; }
    [[nodiscard]] double Start() const noexcept { return start_; }
    [[nodiscard]] double End() const noexcept { return end_; }

  private:
    double start_ = 0;
    double end_ = 1;
};

}  // namespace

ScaledCanvas::ScaledCanvas(Canvas& target, Rectangle const& area, Size size) noexcept
    : ScaledCanvas(target, area.TopLeft().X(), area.TopLeft().Y(),
                   Ratio(area.GetSize().Width(), size.Width()), Ratio(area.GetSize().Height(), size.Height()),
                   size) {}

ScaledCanvas::ScaledCanvas(Canvas& target, double x, double y, double scaleX, double scaleY,
                           Size size) noexcept
    : target_(&target), x_(x), y_(y), scaleX_(scaleX), scaleY_(scaleY), size_(size) {}

ScaledCanvas ScaledCanvas::Within(Point position, Size size) const noexcept {
    return {*target_, x_ + position.X() * scaleX_, y_ + position.Y() * scaleY_, scaleX_, scaleY_, size};
}

Point ScaledCanvas::ToTarget(Point point) const noexcept {
    return {Scaled(1, x_ + point.X() * scaleX_), Scaled(1, y_ + point.Y() * scaleY_)};
}

// The last pixel ends where the next one would begin.
Rectangle ScaledCanvas::ToTarget(Rectangle const& area) const noexcept {
    return {ToTarget(area.TopLeft()), ToTarget(area.BottomRight() + Point(1, 1)) - Point(1, 1)};
}

Size ScaledCanvas::ToTarget(Size size) const noexcept {
    return {Scaled(size.Width(), scaleX_), Scaled(size.Height(), scaleY_)};
}

Pen ScaledCanvas::ToTarget(Pen pen) const noexcept {
    pen.ChangeWidth(ScaledWidth(pen.GetWidth(), scaleY_));
    return pen;
}

Font ScaledCanvas::ToTarget(Font font) const noexcept {
    if (scaleX_ == 1 && scaleY_ == 1) return font;
    int const height = font.GetHeight() == 0 ? SystemLineHeight : font.GetHeight();
    font.ChangeSize({Scaled(font.GetWidth(), scaleX_), std::max(1, Scaled(height, scaleY_))});
    return font;
}

void ScaledCanvas::Line(Point from, Point to, Pen const& pen) {
    int const dx = to.X() - from.X();
    int const dy = to.Y() - from.Y();
    Extent extent;
    extent.Cut(-dx, from.X());
    extent.Cut(dx, size_.Width() - 1 - from.X());
    extent.Cut(-dy, from.Y());
    extent.Cut(dy, size_.Height() - 1 - from.Y());
    if (extent.IsEmpty()) return;
    auto const along = [&](double part) { return from + Point(Scaled(dx, part), Scaled(dy, part)); };
    target_->Line(ToTarget(along(extent.Start())), ToTarget(along(extent.End())), ToTarget(pen));
}

void ScaledCanvas::Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) {
    Point const a = area.TopLeft();
    Point const b = area.BottomRight();
    Rectangle const inside(
        {std::max<int>(a.X(), 0), std::max<int>(a.Y(), 0)},
        {std::min<int>(b.X(), size_.Width() - 1), std::min<int>(b.Y(), size_.Height() - 1)});
    if (inside.BottomRight().X() < inside.TopLeft().X() || inside.BottomRight().Y() < inside.TopLeft().Y())
        return;
    target_->Rect(ToTarget(inside), ToTarget(rounding), ToTarget(pen), brush);
}

void ScaledCanvas::Text(Point topLeft, String const& text, Font const& font) {
    target_->Text(ToTarget(topLeft), text, ToTarget(font));
}

void ScaledCanvas::Image(Rectangle const& area, Bitmap const& bitmap) {
    target_->Image(ToTarget(area), bitmap);
}

void ScaledCanvas::Pixel(Point place, Color color) {
    target_->Rect(ToTarget(Rectangle(place, place)), {}, Pen(color, 1, PenStyle::None), Brush(color));
}

void ScaledCanvas::Clear(Color color) {
    target_->Rect(ToTarget(Rectangle::Of(Point(), size_)), {}, Pen(color, 1, PenStyle::None), Brush(color));
}

Bitmap ScaledCanvas::Copy(Rectangle const& area) const {
    return Bitmap(area.GetSize(), BitmapPixel(0, 0, 0, 0));
}

Size ScaledCanvas::TextSize(String const& text, Font const& font) const {
    Size const size = target_->TextSize(text, ToTarget(font));
    auto const back = [](int length, double scale) {
        return scale > 0 ? static_cast<int>(std::ceil(length / scale)) : 0;
    };
    return {back(size.Width(), scaleX_), back(size.Height(), scaleY_)};
}

}  // namespace sv::detail
