// sv::Color: a colour of the screen or a printer, 16 bits per channel.
#pragma once

#include <cstdint>

namespace sv {

class Color {
  public:
    /// Black.
    constexpr Color() noexcept = default;
    /// Channels from 0 to 65535.
    constexpr Color(std::uint16_t red, std::uint16_t green, std::uint16_t blue) noexcept
        : red_(red), green_(green), blue_(blue) {}

    [[nodiscard]] constexpr std::uint16_t GetRed() const noexcept { return red_; }
    [[nodiscard]] constexpr std::uint16_t GetGreen() const noexcept { return green_; }
    [[nodiscard]] constexpr std::uint16_t GetBlue() const noexcept { return blue_; }

    friend constexpr bool operator==(Color const&, Color const&) noexcept = default;

  private:
    std::uint16_t red_ = 0;
    std::uint16_t green_ = 0;
    std::uint16_t blue_ = 0;
};

static_assert(sizeof(Color) == 3 * sizeof(std::uint16_t));

}  // namespace sv
