// Canvas: what a backend draws on. The drawing half of the seam between the toolkit and a window system; all
// coordinates are pixels from the top left corner.
#pragma once

#include "SV/core/String.h"
#include "SV/ui/Bitmap.h"
#include "SV/ui/Drawing.h"

namespace sv::detail {

class Canvas {
  public:
    virtual ~Canvas() = default;

    /// Both ends are drawn.
    virtual void Line(Point from, Point to, Pen const& pen) = 0;
    /// Both corners belong to it. `rounding` are the diameters of its corners.
    virtual void Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) = 0;
    /// `topLeft` is that of the box which `TextSize` measures.
    virtual void Text(Point topLeft, String const& text, Font const& font) = 0;
    /// The picture fills the area, stretched where it has another size.
    virtual void Image(Rectangle const& area, Bitmap const& bitmap) = 0;
    virtual void Pixel(Point place, Color color) = 0;
    /// The whole surface in one colour.
    virtual void Clear(Color color) = 0;

    /// What was drawn; black outside the surface, and on surfaces that cannot be read back.
    [[nodiscard]] virtual Bitmap Copy(Rectangle const& area) const = 0;
    [[nodiscard]] virtual Size TextSize(String const& text, Font const& font) const = 0;
};

}  // namespace sv::detail
