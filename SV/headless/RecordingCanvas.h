// RecordingCanvas: a surface without a display. It records every call and draws real pixels. Text has fixed
// metrics, the same on every machine, and shows as a block per letter.
#pragma once

#include "SV/ui/Canvas.h"

#include <span>
#include <vector>

namespace sv::headless {

enum class DrawKind : int { Line, Rect, Text, Image, Pixel, Clear };

/// A drawing call, in pixels from the top left corner. Which fields are in use depends on the kind.
struct DrawCall {
    DrawKind kind = DrawKind::Line;
    Point from{};     // start, top left corner, place
    Point to{};       // end, bottom right corner
    Pen pen{};        // Line, Rect
    Brush brush{};    // Rect
    Size rounding{};  // Rect
    String text{};    // Text
    Font font{};      // Text
    Color color{};    // Pixel, Clear
    Bitmap image{};   // Image
};

/// Repeats the calls on another surface.
void Replay(std::span<DrawCall const> calls, detail::Canvas& canvas);

/// The height of a line and the width of each letter of the font.
[[nodiscard]] Size LetterSize(Font const& font) noexcept;

class RecordingCanvas final : public detail::Canvas {
  public:
    explicit RecordingCanvas(Size size) : pixels_(size) {}

    void Line(Point from, Point to, Pen const& pen) override;
    void Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) override;
    void Text(Point topLeft, String const& text, Font const& font) override;
    void Image(Rectangle const& area, Bitmap const& bitmap) override;
    void Pixel(Point place, Color color) override;
    void Clear(Color color) override;
    [[nodiscard]] Bitmap Copy(Rectangle const& area) const override;
    [[nodiscard]] Size TextSize(String const& text, Font const& font) const override;

    /// Resets the surface to black pixels of this size and clears the record.
    void Restart(Size size);
    [[nodiscard]] Bitmap const& Pixels() const noexcept { return pixels_; }
    [[nodiscard]] std::vector<DrawCall> const& Calls() const noexcept { return calls_; }

  private:
    Bitmap pixels_;
    std::vector<DrawCall> calls_;
};

}  // namespace sv::headless
