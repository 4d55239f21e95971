// sv::OutputDevice: the drawing operations of windows, pictures in memory and printed pages, with their pen,
// brushes, font and map mode.
#pragma once

#include "SV/core/ForeignMacros.h"
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

    // Each returns the previous value.
    Pen ChangePen(Pen const& pen) noexcept;
    Brush ChangeFillInBrush(Brush const& brush) noexcept;
    /// The brush of `Erase` and of a window's background.
    Brush ChangeBackgroundBrush(Brush const& brush) noexcept;
    Font ChangeFont(Font const& font) noexcept;
    MapMode ChangeMapMode(MapMode const& mapMode) noexcept;

    [[nodiscard]] Pen const& GetPen() const noexcept { return pen_; }
    [[nodiscard]] Brush const& GetFillInBrush() const noexcept { return fillIn_; }
    [[nodiscard]] Brush const& GetBackgroundBrush() const noexcept { return background_; }
    [[nodiscard]] Font const& GetFont() const noexcept { return font_; }
    [[nodiscard]] MapMode const& GetMapMode() const noexcept { return mapMode_; }

    /// Draws a line, both ends included.
    void DrawLine(Point from, Point to);
    /// Draws the outline with the pen and fills the area with the fill brush; both corners are included.
    void DrawRect(Rectangle const& area, unsigned short roundingX = 0, unsigned short roundingY = 0);
    /// Draws a text with its top left corner at `place`, or its bottom left corner if y grows upward.
    void DrawText(Point place, String const& text);
    void DrawBitmap(Point topLeft, Bitmap const& bitmap);
    void DrawPixel(Point place, Color color);
    /// Fills the whole device with the background brush.
    void Erase();

    /// Returns the colour of a pixel; black outside the device.
    [[nodiscard]] Color GetPixel(Point place) const;
    [[nodiscard]] Bitmap GetBitmap(Point topLeft, Size size) const;
    /// In units of the map mode, rounded up.
    [[nodiscard]] Size GetTextSize(String const& text) const;

    /// Converts logical coordinates to pixels.
    [[nodiscard]] Point LogicToPixel(Point point) const noexcept;
    /// Converts pixels to logical coordinates, truncated to whole units; 0 if the scale is 0.
    [[nodiscard]] Point PixelToLogic(Point pixel) const noexcept;
    [[nodiscard]] Size PixelToLogic(Size pixels) const noexcept;

  protected:
    OutputDevice() = default;
    ~OutputDevice() = default;
    /// Gives access to the canvas of another device.
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
