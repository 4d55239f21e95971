// KORVELBitmap: a picture for button faces, with a margin, another background colour and a greyed form. A
// finer copy for screens of high density is changed with it.
#pragma once

#include "SV/ui/Drawing.h"
#include "SV/ui/ResId.h"

namespace kv {

class KORVELBitmap : public sv::Bitmap {
  public:
    KORVELBitmap() = default;
    explicit KORVELBitmap(sv::Bitmap const& bitmap) : Bitmap(bitmap) {}
    /// Loads the picture and gives it a margin.
    KORVELBitmap(sv::ResId const& id, sv::Brush const& brush, int left, int right, int top, int bottom);

    /// Enlarges the picture by a margin in the brush's colour. Pixels in the colour of the picture's own top
    /// left pixel get the brush's colour too.
    void SetColorUndVergroesserung(sv::Brush const& brush, int left, int right, int top, int bottom);
    /// Gives the brush's colour to every pixel that has the colour of the pixel at `place`.
    void SetBackground(sv::Brush const& brush, sv::Point const& place);
    /// Greys the picture: every second pixel of every second row gets the colour of the top left pixel, the
    /// background; other pixels that differ from the background become grey.
    void Inaktiv();
};

}  // namespace kv
