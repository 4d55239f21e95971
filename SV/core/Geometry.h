// Point, Size and Rectangle: whole pixels or logical units, 16 bits and signed, as plots and layouts count.
#pragma once

#include <cstdint>

namespace sv {

class Point {
  public:
    constexpr Point() noexcept = default;
    constexpr Point(std::int16_t x, std::int16_t y) noexcept : x_(x), y_(y) {}

    [[nodiscard]] constexpr std::int16_t X() const noexcept { return x_; }
    [[nodiscard]] constexpr std::int16_t Y() const noexcept { return y_; }
    [[nodiscard]] constexpr std::int16_t& X() noexcept { return x_; }
    [[nodiscard]] constexpr std::int16_t& Y() noexcept { return y_; }

    friend constexpr bool operator==(Point const&, Point const&) noexcept = default;

  private:
    std::int16_t x_ = 0;
    std::int16_t y_ = 0;
};

class Size {
  public:
    constexpr Size() noexcept = default;
    constexpr Size(std::int16_t width, std::int16_t height) noexcept : width_(width), height_(height) {}

    [[nodiscard]] constexpr std::int16_t Width() const noexcept { return width_; }
    [[nodiscard]] constexpr std::int16_t Height() const noexcept { return height_; }
    [[nodiscard]] constexpr std::int16_t& Width() noexcept { return width_; }
    [[nodiscard]] constexpr std::int16_t& Height() noexcept { return height_; }

    friend constexpr bool operator==(Size const&, Size const&) noexcept = default;

  private:
    std::int16_t width_ = 0;
    std::int16_t height_ = 0;
};

/// Two corners, both of which belong to the area.
class Rectangle {
  public:
    constexpr Rectangle() noexcept = default;
    constexpr Rectangle(Point topLeft, Point bottomRight) noexcept
        : topLeft_(topLeft), bottomRight_(bottomRight) {}

    [[nodiscard]] constexpr Point TopLeft() const noexcept { return topLeft_; }
    [[nodiscard]] constexpr Point BottomRight() const noexcept { return bottomRight_; }

    /// Whether the point lies in the area or on its edge.
    [[nodiscard]] constexpr bool IsInside(Point point) const noexcept {
        return point.X() >= topLeft_.X() && point.X() <= bottomRight_.X() && point.Y() >= topLeft_.Y() &&
               point.Y() <= bottomRight_.Y();
    }

    friend constexpr bool operator==(Rectangle const&, Rectangle const&) noexcept = default;

  private:
    Point topLeft_;
    Point bottomRight_;
};

}  // namespace sv
