#include "SV/ui/Bitmap.h"

#include <algorithm>

namespace sv {

namespace {

std::int16_t Side(std::int16_t length) noexcept { return std::max<std::int16_t>(length, 0); }

std::uint8_t Mix(std::uint8_t over, std::uint8_t under, int alpha) noexcept {
    constexpr int Opaque = 255;
    return static_cast<std::uint8_t>((over * alpha + under * (Opaque - alpha) + Opaque / 2) / Opaque);
}

}  // namespace

Bitmap::Bitmap(Size size, BitmapPixel pixel)
    : size_(Side(size.Width()), Side(size.Height())),
      pixels_(static_cast<std::size_t>(size_.Width()) * static_cast<std::size_t>(size_.Height()), pixel) {}

void Bitmap::Blend(int x, int y, BitmapPixel pixel) noexcept {
    if (!Contains(x, y)) return;
    BitmapPixel& under = pixels_[Place(x, y)];
    int const alpha = pixel.alpha;
    under = {Mix(pixel.red, under.red, alpha), Mix(pixel.green, under.green, alpha),
             Mix(pixel.blue, under.blue, alpha), std::max(pixel.alpha, under.alpha)};
}

void Bitmap::Paste(int x, int y, Bitmap const& picture) noexcept {
    for (int row = 0; row < picture.size_.Height(); ++row) {
        for (int column = 0; column < picture.size_.Width(); ++column) {
            Blend(x + column, y + row, picture.At(column, row));
        }
    }
}

Bitmap Bitmap::Cut(Point topLeft, Size size) const {
    Bitmap part(size);
    for (int y = 0; y < part.size_.Height(); ++y) {
        for (int x = 0; x < part.size_.Width(); ++x) part.Set(x, y, At(topLeft.X() + x, topLeft.Y() + y));
    }
    return part;
}

}  // namespace sv
