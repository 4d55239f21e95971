// fPoint: a point of a plot in data units.
#pragma once

#include "KVUtils/Source/colorimetry/Rounded.h"
#include "SV/core/Geometry.h"

#include <cmath>

namespace kv {

/// Each component is computed in `double` and rounded to `float`.
class fPoint {
  public:
    constexpr fPoint() noexcept = default;
    constexpr fPoint(float x, float y) noexcept : x_(x), y_(y) {}
    /// Implicit, since whole coordinates convert exactly.
    constexpr fPoint(sv::Point const& point) noexcept : x_(point.X()), y_(point.Y()) {}

    [[nodiscard]] constexpr float X() const noexcept { return x_; }
    [[nodiscard]] constexpr float Y() const noexcept { return y_; }
    [[nodiscard]] constexpr float& X() noexcept { return x_; }
    [[nodiscard]] constexpr float& Y() noexcept { return y_; }

    /// The Euclidean distance.
    [[nodiscard]] float Distance(fPoint const& other) const noexcept {
        double const dx = double{x_} - double{other.x_};
        double const dy = double{y_} - double{other.y_};
        return static_cast<float>(std::sqrt(dy * dy + dx * dx));
    }

    constexpr fPoint& operator+=(fPoint const& other) noexcept {
        return Set(double{x_} + double{other.x_}, double{y_} + double{other.y_});
    }
    constexpr fPoint& operator-=(fPoint const& other) noexcept {
        return Set(double{x_} - double{other.x_}, double{y_} - double{other.y_});
    }
    constexpr fPoint& operator*=(float factor) noexcept {
        return Set(double{x_} * double{factor}, double{y_} * double{factor});
    }
    /// A zero divisor gives infinity or NaN, here and below.
    constexpr fPoint& operator/=(float divisor) noexcept {
        return Set(double{x_} / double{divisor}, double{y_} / double{divisor});
    }

    [[nodiscard]] friend constexpr fPoint operator+(fPoint a, fPoint const& b) noexcept { return a += b; }
    [[nodiscard]] friend constexpr fPoint operator-(fPoint a, fPoint const& b) noexcept { return a -= b; }
    [[nodiscard]] friend constexpr fPoint operator*(fPoint point, float factor) noexcept {
        return point *= factor;
    }
    [[nodiscard]] friend constexpr fPoint operator/(fPoint point, float divisor) noexcept {
        return point /= divisor;
    }
    friend constexpr bool operator==(fPoint const&, fPoint const&) noexcept = default;

  private:
    constexpr fPoint& Set(double x, double y) noexcept {
        x_ = detail::Rounded<float>(x);
        y_ = detail::Rounded<float>(y);
        return *this;
    }

    float x_ = 0;
    float y_ = 0;
};

static_assert(sizeof(fPoint) == 2 * sizeof(float));

}  // namespace kv
