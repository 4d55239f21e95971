// sv::ResId: a resource, identified by its number and library.
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/ui/Bitmap.h"

namespace sv {

class ResId {
  public:
    /// Returns the picture with this number, or an empty one for an unknown number.
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
