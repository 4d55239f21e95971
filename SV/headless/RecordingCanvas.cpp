#include "SV/headless/RecordingCanvas.h"

#include <algorithm>
#include <cstdlib>

namespace sv::headless {

namespace {

constexpr int SystemFontHeight = 16;
/// The pixels of a dash, and of the gap after it.
constexpr int DashLength = 3;

/// Draws lines with a pen of any width, pixel by pixel.
class Plotter {
  public:
    Plotter(Bitmap& pixels, Pen const& pen) : pixels_(pixels), pen_(pen), pixel_(pen.GetColor()) {}

    void Step(int x, int y) {
        bool const isGap = pen_.GetStyle() == PenStyle::Dash && steps_++ / DashLength % 2 != 0;
        if (isGap || pen_.GetStyle() == PenStyle::None) return;
        int const width = std::max<int>(pen_.GetWidth(), 1);
        for (int dy = -(width - 1) / 2; dy <= width / 2; ++dy) {
            for (int dx = -(width - 1) / 2; dx <= width / 2; ++dx) pixels_.Set(x + dx, y + dy, pixel_);
        }
    }

    void Line(int x, int y, int toX, int toY) {
        int const dx = std::abs(toX - x);
        int const dy = -std::abs(toY - y);
        int const stepX = x < toX ? 1 : -1;
        int const stepY = y < toY ? 1 : -1;
        for (int error = dx + dy;;) {
            Step(x, y);
            if (x == toX && y == toY) return;
            int const doubled = 2 * error;
            if (doubled >= dy) {
                error += dy;
                x += stepX;
            }
            if (doubled <= dx) {
                error += dx;
                y += stepY;
            }
        }
    }

  private:
    Bitmap& pixels_;
    Pen pen_;
    BitmapPixel pixel_;
    int steps_ = 0;
};

/// Whether a pixel lies inside a rectangle with rounded corners.
bool IsInside(int x, int y, int width, int height, Size rounding) noexcept {
    double const radiusX = std::min<int>(rounding.Width(), width) / 2.0;
    double const radiusY = std::min<int>(rounding.Height(), height) / 2.0;
    if (radiusX <= 0 || radiusY <= 0) return true;
    double const cornerX = std::max({radiusX - (x + 0.5), x + 0.5 - (width - radiusX), 0.0}) / radiusX;
    double const cornerY = std::max({radiusY - (y + 0.5), y + 0.5 - (height - radiusY), 0.0}) / radiusY;
    return cornerX * cornerX + cornerY * cornerY <= 1.0;
}

/// Scales a picture by taking the nearest pixel.
Bitmap Stretched(Bitmap const& bitmap, Size size) {
    Size const from = bitmap.GetSizePixel();
    if (from == size) return bitmap;
    Bitmap stretched(size);
    for (int y = 0; y < size.Height(); ++y) {
        for (int x = 0; x < size.Width(); ++x)
            stretched.Set(x, y,
                          bitmap.At(x * from.Width() / size.Width(), y * from.Height() / size.Height()));
    }
    return stretched;
}

}  // namespace

Size LetterSize(Font const& font) noexcept {
    int const height = font.GetHeight() == 0 ? SystemFontHeight : font.GetHeight();
    int const width = font.GetWidth() != 0 ? font.GetWidth()
                                           : height * 7 / 16 + (font.GetWeight() == FontWeight::Bold ? 1 : 0);
    return {width, height};
}

void Replay(std::span<DrawCall const> calls, detail::Canvas& canvas) {
    for (DrawCall const& call : calls) {
        switch (call.kind) {
            case DrawKind::Line:
                canvas.Line(call.from, call.to, call.pen);
                break;
            case DrawKind::Rect:
                canvas.Rect({call.from, call.to}, call.rounding, call.pen, call.brush);
                break;
            case DrawKind::Text:
                canvas.Text(call.from, call.text, call.font);
                break;
            case DrawKind::Image:
                canvas.Image({call.from, call.to}, call.image);
                break;
            case DrawKind::Pixel:
                canvas.Pixel(call.from, call.color);
                break;
            case DrawKind::Clear:
                canvas.Clear(call.color);
                break;
        }
    }
}

void RecordingCanvas::Line(Point from, Point to, Pen const& pen) {
    calls_.push_back({.kind = DrawKind::Line, .from = from, .to = to, .pen = pen});
    Plotter(pixels_, pen).Line(from.X(), from.Y(), to.X(), to.Y());
}

void RecordingCanvas::Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) {
    Point const a = area.TopLeft();
    Point const b = area.BottomRight();
    calls_.push_back(
        {.kind = DrawKind::Rect, .from = a, .to = b, .pen = pen, .brush = brush, .rounding = rounding});
    int const width = area.GetSize().Width();
    int const height = area.GetSize().Height();
    auto const isInside = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < width && y < height && IsInside(x, y, width, height, rounding);
    };
    Plotter outline(pixels_, pen);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!isInside(x, y)) continue;
            bool const isEdge =
                !isInside(x - 1, y) || !isInside(x + 1, y) || !isInside(x, y - 1) || !isInside(x, y + 1);
            if (brush.GetStyle() != BrushStyle::None)
                pixels_.Set(a.X() + x, a.Y() + y, BitmapPixel(brush.GetColor()));
            if (isEdge) outline.Step(a.X() + x, a.Y() + y);
        }
    }
}

void RecordingCanvas::Text(Point topLeft, String const& text, Font const& font) {
    calls_.push_back({.kind = DrawKind::Text, .from = topLeft, .text = text, .font = font});
    Size const letter = LetterSize(font);
    int left = topLeft.X();
    for (char const character : text.View()) {
        for (int y = letter.Height() / 4; character != ' ' && y < letter.Height() * 3 / 4; ++y) {
            for (int x = 1; x < letter.Width() - 1; ++x) {
                pixels_.Set(left + x, topLeft.Y() + y, BitmapPixel(font.GetColor()));
            }
        }
        left += letter.Width();
    }
}

void RecordingCanvas::Image(Rectangle const& area, Bitmap const& bitmap) {
    Point const corner = area.TopLeft();
    calls_.push_back({.kind = DrawKind::Image, .from = corner, .to = area.BottomRight(), .image = bitmap});
    pixels_.Paste(corner.X(), corner.Y(), Stretched(bitmap, area.GetSize()));
}

void RecordingCanvas::Pixel(Point place, Color color) {
    calls_.push_back({.kind = DrawKind::Pixel, .from = place, .to = place, .color = color});
    pixels_.Set(place.X(), place.Y(), BitmapPixel(color));
}

void RecordingCanvas::Clear(Color color) {
    calls_.push_back({.kind = DrawKind::Clear, .color = color});
    pixels_ = Bitmap(pixels_.GetSizePixel(), BitmapPixel(color));
}

Bitmap RecordingCanvas::Copy(Rectangle const& area) const {
    return pixels_.Cut(area.TopLeft(), area.GetSize());
}

Size RecordingCanvas::TextSize(String const& text, Font const& font) const {
    Size const letter = LetterSize(font);
    return {letter.Width() * static_cast<int>(text.Len()), letter.Height()};
}

void RecordingCanvas::Restart(Size size) {
    pixels_ = Bitmap(size);
    calls_.clear();
}

}  // namespace sv::headless
