// sv::Color: a colour of the screen or a printer, 16 bits per channel.
#pragma once

#include <cstdint>

namespace sv {

class Color {
  public:
    /// Black.
    constexpr Color() noexcept = default;
    /// The kind of a colour that is defined by its channels.
    static constexpr std::uint16_t UserKind = 29;
    /// Channels from 0 to 65535.
    constexpr Color(std::uint16_t red, std::uint16_t green, std::uint16_t blue) noexcept
        : Color(UserKind, red, green, blue) {}
    constexpr Color(std::uint16_t kind, std::uint16_t red, std::uint16_t green, std::uint16_t blue) noexcept
        : kind_(kind), red_(red), green_(green), blue_(blue) {}

    /// The number that a caller filed the colour under; takes no part in comparisons.
    [[nodiscard]] constexpr std::uint16_t GetKind() const noexcept { return kind_; }

    [[nodiscard]] constexpr std::uint16_t GetRed() const noexcept { return red_; }
    [[nodiscard]] constexpr std::uint16_t GetGreen() const noexcept { return green_; }
    [[nodiscard]] constexpr std::uint16_t GetBlue() const noexcept { return blue_; }

    friend constexpr bool operator==(Color const& a, Color const& b) noexcept {
        return a.red_ == b.red_ && a.green_ == b.green_ && a.blue_ == b.blue_;
    }

  private:
    std::uint16_t kind_ = 0;
    std::uint16_t red_ = 0;
    std::uint16_t green_ = 0;
    std::uint16_t blue_ = 0;
};

static_assert(sizeof(Color) == 4 * sizeof(std::uint16_t));

}  // namespace sv
