#include "KVUtils/Source/controls/KORVELBitmap.h"

#include <utility>

namespace kv {

namespace {

using sv::Bitmap;
using sv::BitmapPixel;

template <class Change>
void ForEachPixel(Bitmap& picture, Change change) {
    sv::Size const size = picture.GetSizePixel();
    for (int y = 0; y < size.Height(); ++y) {
        for (int x = 0; x < size.Width(); ++x) picture.Set(x, y, change(x, y, picture.At(x, y)));
    }
}

/// Applies a change to a picture and, where it has one, to its finer copy. `change(picture, grain)` gets the
/// length of a pixel.
template <class Change>
void ChangeAll(Bitmap& picture, Change change) {
    if (Bitmap const* const before = picture.GetFine()) {
        Bitmap fine = *before;
        change(fine, 2);
        change(picture, 1);
        picture.SetFine(std::move(fine));
    } else {
        change(picture, 1);
    }
}

void ReplaceColour(Bitmap& picture, BitmapPixel from, BitmapPixel to) {
    ForEachPixel(picture, [&](int, int, BitmapPixel pixel) { return pixel == from ? to : pixel; });
}

BitmapPixel Grey(BitmapPixel pixel) noexcept {
    auto const mean = static_cast<std::uint8_t>((pixel.red + pixel.green + pixel.blue) / 3);
    return {mean, mean, mean, pixel.alpha};
}

}  // namespace

KORVELBitmap::KORVELBitmap(sv::ResId const& id, sv::Brush const& brush, int left, int right, int top,
                           int bottom)
    : Bitmap(id.LoadBitmap()) {
    SetColorUndVergroesserung(brush, left, right, top, bottom);
}

void KORVELBitmap::SetColorUndVergroesserung(sv::Brush const& brush, int left, int right, int top,
                                             int bottom) {
    BitmapPixel const ground(brush.GetColor());
    ChangeAll(*this, [=](Bitmap& picture, int grain) {
        sv::Size const size = picture.GetSizePixel();
        Bitmap surface({size.Width() + (left + right) * grain, size.Height() + (top + bottom) * grain},
                       ground);
        surface.Paste(left * grain, top * grain, picture);
        ReplaceColour(surface, surface.At(left * grain, top * grain), ground);
        picture = std::move(surface);
    });
}

void KORVELBitmap::SetBackground(sv::Brush const& brush, sv::Point const& place) {
    BitmapPixel const ground(brush.GetColor());
    ChangeAll(*this, [&](Bitmap& picture, int grain) {
        ReplaceColour(picture, picture.At(place.X() * grain, place.Y() * grain), ground);
    });
}

void KORVELBitmap::Inaktiv() {
    ChangeAll(*this, [](Bitmap& picture, int grain) {
        BitmapPixel const ground = picture.At(0, 0);
        ForEachPixel(picture, [=](int x, int y, BitmapPixel pixel) {
            bool const isStipple = x / grain % 2 != 0 && y / grain % 2 != 0;
            return isStipple || pixel == ground ? ground : Grey(pixel);
        });
    });
}

}  // namespace kv
