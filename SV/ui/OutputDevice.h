// sv::OutputDevice: the drawing side of windows, pictures in memory and printed pages: what to draw with, the
// map from the caller's coordinates to pixels, and the operations that draw.
#pragma once

#include "SV/core/String.h"
#include "SV/ui/Bitmap.h"
#include "SV/ui/Drawing.h"

namespace sv {

namespace detail {
class Canvas;
}

class OutputDevice {
  public:
    OutputDevice(OutputDevice const&) = delete;
    OutputDevice& operator=(OutputDevice const&) = delete;

    // Each returns what was there before.
    Pen ChangePen(Pen const& pen) noexcept;
    Brush ChangeFillInBrush(Brush const& brush) noexcept;
    /// What `Erase` and a window's ground are painted with.
    Brush ChangeBackgroundBrush(Brush const& brush) noexcept;
    Font ChangeFont(Font const& font) noexcept;
    MapMode ChangeMapMode(MapMode const& mapMode) noexcept;

    [[nodiscard]] Pen const& GetPen() const noexcept { return pen_; }
    [[nodiscard]] Brush const& GetFillInBrush() const noexcept { return fillIn_; }
    [[nodiscard]] Brush const& GetBackgroundBrush() const noexcept { return background_; }
    [[nodiscard]] Font const& GetFont() const noexcept { return font_; }
    [[nodiscard]] MapMode const& GetMapMode() const noexcept { return mapMode_; }

    /// Both ends are drawn.
    void DrawLine(Point from, Point to);
    /// The outline by the pen, the area by the fill brush; both corners belong to it.
    void DrawRect(Rectangle const& area, unsigned short roundingX = 0, unsigned short roundingY = 0);
    /// With the text's top left corner at the place; where y grows upward, its bottom left corner.
    void DrawText(Point place, String const& text);
    void DrawBitmap(Point topLeft, Bitmap const& bitmap);
    void DrawPixel(Point place, Color color);
    /// Paints everything with the background brush.
    void Erase();

    /// What was drawn there; black outside.
    [[nodiscard]] Color GetPixel(Point place) const;
    [[nodiscard]] Bitmap GetBitmap(Point topLeft, Size size) const;
    /// In units of the map mode, so large that the text fits.
    [[nodiscard]] Size GetTextSize(String const& text) const;

    /// The pixel of a point.
    [[nodiscard]] Point LogicToPixel(Point point) const noexcept;
    /// Back, cut to whole units; 0 where the scale is.
    [[nodiscard]] Point PixelToLogic(Point pixel) const noexcept;
    [[nodiscard]] Size PixelToLogic(Size pixels) const noexcept;

  protected:
    OutputDevice() = default;
    ~OutputDevice() = default;
    /// For a device that is drawn on another one.
    [[nodiscard]] static detail::Canvas& CanvasOf(OutputDevice const& device) { return device.GetCanvas(); }

  private:
    [[nodiscard]] virtual detail::Canvas& GetCanvas() const = 0;
    [[nodiscard]] virtual double PixelsPerTenthMillimetre() const noexcept;

    [[nodiscard]] double PixelsPerUnit() const noexcept;
    [[nodiscard]] Pen PixelPen() const noexcept;
    [[nodiscard]] Font PixelFont() const noexcept;

    Pen pen_;
    Brush fillIn_;
    Brush background_;
    Font font_;
    MapMode mapMode_;
};

}  // namespace sv
