// KORVELBitmap: a picture with what the faces of buttons need: a margin, a ground of another colour, and a
// greyed form. A finer copy for screens of high density goes along.
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

    /// Puts the picture on a ground in the brush's colour that is so many pixels larger on each side. The
    /// colour of the picture's own top left pixel becomes that ground, too.
    void SetColorUndVergroesserung(sv::Brush const& brush, int left, int right, int top, int bottom);
    /// Each pixel of the colour that the pixel at `place` has becomes the brush's colour.
    void SetBackground(sv::Brush const& brush, sv::Point const& place);
    /// Greys the picture: every second pixel of every second row becomes the colour of the top left one,
    /// which counts as the ground; of the others, those in another colour become grey.
    void Inaktiv();
};

}  // namespace kv
