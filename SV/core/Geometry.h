// Point, Size and Rectangle in pixels or logical units. Coordinates are signed 16-bit numbers, as plots and
// layouts count; larger results wrap.
#pragma once

#include <cstdint>

namespace sv {

class Point {
  public:
    constexpr Point() noexcept = default;
    constexpr Point(int x, int y) noexcept
        : x_(static_cast<std::int16_t>(x)), y_(static_cast<std::int16_t>(y)) {}

    [[nodiscard]] constexpr std::int16_t X() const noexcept { return x_; }
    [[nodiscard]] constexpr std::int16_t Y() const noexcept { return y_; }
    [[nodiscard]] constexpr std::int16_t& X() noexcept { return x_; }
    [[nodiscard]] constexpr std::int16_t& Y() noexcept { return y_; }

    [[nodiscard]] friend constexpr Point operator+(Point a, Point b) noexcept {
        return {a.x_ + b.x_, a.y_ + b.y_};
    }
    [[nodiscard]] friend constexpr Point operator-(Point a, Point b) noexcept {
        return {a.x_ - b.x_, a.y_ - b.y_};
    }
    friend constexpr bool operator==(Point const&, Point const&) noexcept = default;

  private:
    std::int16_t x_ = 0;
    std::int16_t y_ = 0;
};

class Size {
  public:
    constexpr Size() noexcept = default;
    constexpr Size(int width, int height) noexcept
        : width_(static_cast<std::int16_t>(width)), height_(static_cast<std::int16_t>(height)) {}

    [[nodiscard]] constexpr std::int16_t Width() const noexcept { return width_; }
    [[nodiscard]] constexpr std::int16_t Height() const noexcept { return height_; }
    [[nodiscard]] constexpr std::int16_t& Width() noexcept { return width_; }
    [[nodiscard]] constexpr std::int16_t& Height() noexcept { return height_; }

    friend constexpr bool operator==(Size const&, Size const&) noexcept = default;

  private:
    std::int16_t width_ = 0;
    std::int16_t height_ = 0;
};

/// Two corners, both part of the area.
class Rectangle {
  public:
    constexpr Rectangle() noexcept = default;
    constexpr Rectangle(Point topLeft, Point bottomRight) noexcept
        : topLeft_(topLeft), bottomRight_(bottomRight) {}
    /// Returns the rectangle of this size whose top left corner is `topLeft`.
    [[nodiscard]] static constexpr Rectangle Of(Point topLeft, Size size) noexcept {
        return {topLeft, topLeft + Point(size.Width() - 1, size.Height() - 1)};
    }

    [[nodiscard]] constexpr Point TopLeft() const noexcept { return topLeft_; }
    [[nodiscard]] constexpr Point BottomRight() const noexcept { return bottomRight_; }
    /// Width and height in pixels.
    [[nodiscard]] constexpr Size GetSize() const noexcept {
        return {bottomRight_.X() - topLeft_.X() + 1, bottomRight_.Y() - topLeft_.Y() + 1};
    }

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
