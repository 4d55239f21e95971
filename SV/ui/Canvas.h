// Canvas: a surface that a backend draws on. All coordinates are pixels from the top left corner.
#pragma once

#include "SV/core/String.h"
#include "SV/ui/Bitmap.h"
#include "SV/ui/Drawing.h"

namespace sv::detail {

class Canvas {
  public:
    virtual ~Canvas() = default;

    /// Draws a line, both ends included.
    virtual void Line(Point from, Point to, Pen const& pen) = 0;
    /// Draws a rectangle, both corners included. `rounding` holds the diameters of its rounded corners.
    virtual void Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) = 0;
    /// `topLeft` is the corner of the box that `TextSize` measures.
    virtual void Text(Point topLeft, String const& text, Font const& font) = 0;
    /// Draws the picture, scaled to the area.
    virtual void Image(Rectangle const& area, Bitmap const& bitmap) = 0;
    virtual void Pixel(Point place, Color color) = 0;
    /// Fills the whole surface.
    virtual void Clear(Color color) = 0;

    /// Returns what was drawn; black outside the surface, and if the surface cannot be read back.
    [[nodiscard]] virtual Bitmap Copy(Rectangle const& area) const = 0;
    [[nodiscard]] virtual Size TextSize(String const& text, Font const& font) const = 0;
};

}  // namespace sv::detail
