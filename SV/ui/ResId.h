// sv::ResId: a resource by its number, and the library that it comes from.
#pragma once

#include "SV/ui/Bitmap.h"

namespace sv {

class ResId {
  public:
    /// How a library gives out its pictures: an empty one for a number that it does not know.
    using Library = Bitmap (*)(unsigned short number);

    /// `library` must not be null.
    constexpr ResId(unsigned short number, Library library) noexcept : number_(number), library_(library) {}

    [[nodiscard]] constexpr unsigned short GetNumber() const noexcept { return number_; }
    [[nodiscard]] Bitmap LoadBitmap() const { return library_(number_); }

  private:
    unsigned short number_;
    Library library_;
};

}  // namespace sv
