// sv::Bitmap: a picture in memory, 8 bits per channel with transparency, optionally with a copy of twice the
// resolution for screens of high density.
#pragma once

#include "SV/core/Color.h"
#include "SV/core/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace sv {

struct BitmapPixel {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;  // 0 is transparent

    constexpr BitmapPixel() noexcept = default;
    constexpr BitmapPixel(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255) noexcept
        : red(r), green(g), blue(b), alpha(a) {}
    /// Takes the upper 8 bits of each channel.
    constexpr explicit BitmapPixel(Color color) noexcept
        : red(static_cast<std::uint8_t>(color.GetRed() >> 8U)),
          green(static_cast<std::uint8_t>(color.GetGreen() >> 8U)),
          blue(static_cast<std::uint8_t>(color.GetBlue() >> 8U)) {}
    /// Maps 255 to 65535.
    [[nodiscard]] constexpr Color ToColor() const noexcept {
        constexpr auto wide = [](std::uint8_t channel) { return static_cast<std::uint16_t>(channel * 257); };
        return {wide(red), wide(green), wide(blue)};
    }

    friend constexpr bool operator==(BitmapPixel const&, BitmapPixel const&) noexcept = default;
};

class Bitmap {
  public:
    /// An empty picture.
    Bitmap() = default;
    /// Fills the picture with one pixel. A negative side counts as 0.
    explicit Bitmap(Size size, BitmapPixel pixel = {});

    [[nodiscard]] Size GetSizePixel() const noexcept { return size_; }
    [[nodiscard]] bool IsEmpty() const noexcept { return pixels_.empty(); }
    [[nodiscard]] bool Contains(int x, int y) const noexcept {
        return x >= 0 && y >= 0 && x < size_.Width() && y < size_.Height();
    }

    /// The pixel at this position; transparent black outside the picture.
    [[nodiscard]] BitmapPixel At(int x, int y) const noexcept {
        return Contains(x, y) ? pixels_[Place(x, y)] : BitmapPixel(0, 0, 0, 0);
    }
    /// Does nothing outside the picture.
    void Set(int x, int y, BitmapPixel pixel) noexcept {
        if (Contains(x, y)) pixels_[Place(x, y)] = pixel;
    }
    /// Draws a pixel over the present one, according to its transparency.
    void Blend(int x, int y, BitmapPixel pixel) noexcept;
    /// Draws another picture over this one, with its top left corner at (x, y).
    void Paste(int x, int y, Bitmap const& picture) noexcept;
    /// Returns a part of the picture; transparent black where it extends beyond the picture.
    [[nodiscard]] Bitmap Cut(Point topLeft, Size size) const;

    /// The same picture with twice the pixels in each direction, shown by backends where a pixel of the
    /// program is larger than one of the screen. Null if there is none. Drawing on the picture does not
    /// change it, and a part has none.
    [[nodiscard]] Bitmap const* GetFine() const noexcept { return fine_.get(); }
    void SetFine(Bitmap fine) { fine_ = std::make_shared<Bitmap const>(std::move(fine)); }

    /// Ignores the copy of twice the resolution.
    friend bool operator==(Bitmap const& a, Bitmap const& b) noexcept {
        return a.size_ == b.size_ && a.pixels_ == b.pixels_;
    }

  private:
    [[nodiscard]] std::size_t Place(int x, int y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.Width()) +
               static_cast<std::size_t>(x);
    }

    Size size_;
    std::vector<BitmapPixel> pixels_;  // rows from the top
    std::shared_ptr<Bitmap const> fine_;
};

}  // namespace sv
