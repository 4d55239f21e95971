// sv::Bitmap: a picture in memory, 8 bits a channel, with transparency, and if need be a finer copy of it for
// screens of high density.
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
    std::uint8_t alpha = 255;  // 0 is not there

    constexpr BitmapPixel() noexcept = default;
    constexpr BitmapPixel(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255) noexcept
        : red(r), green(g), blue(b), alpha(a) {}
    /// The upper 8 bits of each channel.
    constexpr explicit BitmapPixel(Color color) noexcept
        : red(static_cast<std::uint8_t>(color.GetRed() >> 8U)),
          green(static_cast<std::uint8_t>(color.GetGreen() >> 8U)),
          blue(static_cast<std::uint8_t>(color.GetBlue() >> 8U)) {}
    /// 255 becomes 65535.
    [[nodiscard]] constexpr Color ToColor() const noexcept {
        constexpr auto wide = [](std::uint8_t channel) { return static_cast<std::uint16_t>(channel * 257); };
        return {wide(red), wide(green), wide(blue)};
    }

    friend constexpr bool operator==(BitmapPixel const&, BitmapPixel const&) noexcept = default;
};

class Bitmap {
  public:
    /// Empty.
    Bitmap() = default;
    /// All pixels alike. A side below 0 counts as 0.
    explicit Bitmap(Size size, BitmapPixel pixel = {});

    [[nodiscard]] Size GetSizePixel() const noexcept { return size_; }
    [[nodiscard]] bool IsEmpty() const noexcept { return pixels_.empty(); }
    [[nodiscard]] bool Contains(int x, int y) const noexcept {
        return x >= 0 && y >= 0 && x < size_.Width() && y < size_.Height();
    }

    /// Black, and not there, outside the picture.
    [[nodiscard]] BitmapPixel At(int x, int y) const noexcept {
        return Contains(x, y) ? pixels_[Place(x, y)] : BitmapPixel(0, 0, 0, 0);
    }
    /// Does nothing outside the picture.
    void Set(int x, int y, BitmapPixel pixel) noexcept {
        if (Contains(x, y)) pixels_[Place(x, y)] = pixel;
    }
    /// Lays a pixel over what is there, by its transparency.
    void Blend(int x, int y, BitmapPixel pixel) noexcept;
    /// Lays another picture over this one, with its top left corner at (x, y).
    void Paste(int x, int y, Bitmap const& picture) noexcept;
    /// A part; black, and not there, where it reaches beyond the picture.
    [[nodiscard]] Bitmap Cut(Point topLeft, Size size) const;

    /// The same picture with twice the pixels each way, which a backend shows in this one's place where a
    /// pixel of the program is larger than one of the screen. Null where there is none; drawing on the
    /// picture leaves it alone, and parts have none.
    [[nodiscard]] Bitmap const* GetFine() const noexcept { return fine_.get(); }
    void SetFine(Bitmap fine) { fine_ = std::make_shared<Bitmap const>(std::move(fine)); }

    /// The finer copy does not count.
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
