// ScaledCanvas: a surface that is drawn as a part of another one, larger or smaller.
#pragma once

#include "SV/ui/Canvas.h"

namespace sv::detail {

class ScaledCanvas final : public Canvas {
  public:
    /// `size` pixels of this surface fill `area` of the target, which must outlive it. Lines and rectangles
    /// are clipped at its edges; letters and pictures that begin inside may extend beyond.
    ScaledCanvas(Canvas& target, Rectangle const& area, Size size) noexcept;
    /// Returns the canvas of the part with these pixels, in the same scale.
    [[nodiscard]] ScaledCanvas Within(Point position, Size size) const noexcept;

    void Line(Point from, Point to, Pen const& pen) override;
    void Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) override;
    void Text(Point topLeft, String const& text, Font const& font) override;
    void Image(Rectangle const& area, Bitmap const& bitmap) override;
    void Pixel(Point place, Color color) override;
    void Clear(Color color) override;
    /// Returns transparent pixels; nothing can be read back.
    [[nodiscard]] Bitmap Copy(Rectangle const& area) const override;
    [[nodiscard]] Size TextSize(String const& text, Font const& font) const override;

  private:
    ScaledCanvas(Canvas& target, double x, double y, double scaleX, double scaleY, Size size) noexcept;
    [[nodiscard]] Point ToTarget(Point point) const noexcept;
    [[nodiscard]] Rectangle ToTarget(Rectangle const& area) const noexcept;
    [[nodiscard]] Size ToTarget(Size size) const noexcept;
    [[nodiscard]] Pen ToTarget(Pen pen) const noexcept;
    [[nodiscard]] Font ToTarget(Font font) const noexcept;

    Canvas* target_;
    double x_;  // the corner on the target
    double y_;
    double scaleX_;
    double scaleY_;
    Size size_;
};

}  // namespace sv::detail
