// The axes, the cursor and the scaling of a plot.
#pragma once

#include "SV/core/String.h"

#include <utility>

namespace kv {

/// What the cursor shows at its position.
enum CursorType : int {
    CURSOR_NONE = 0,
    CURSOR_LINE = 1,    // a vertical line
    CURSOR_MARKER = 2,  // a square on the curve
    CURSOR_CROSS = 3,   // a vertical and a horizontal line through the point of the curve
};

/// Which ends of an axis are taken from the data.
enum AutoScaleType : int {
    AUTOSCALE_MIN = 0,
    AUTOSCALE_MAX = 1,
    AUTOSCALE_BOTH = 2,
};

/// The scale of one axis, in data units.
class AxisData {
  public:
    /// 0 to 1 in steps of 0.2.
    constexpr AxisData() noexcept = default;
    constexpr AxisData(float minimum, float maximum, float step, int subdivisions) noexcept
        : minimum_(minimum), maximum_(maximum), step_(step), subdivisions_(subdivisions) {}

    /// The values at the left or bottom edge, and at the right or top.
    [[nodiscard]] constexpr float GetMinimum() const noexcept { return minimum_; }
    [[nodiscard]] constexpr float GetMaximum() const noexcept { return maximum_; }
    /// The distance between two major ticks.
    [[nodiscard]] constexpr float GetStep() const noexcept { return step_; }
    /// The number of minor ticks between two major ones.
    [[nodiscard]] constexpr int GetSubdivisions() const noexcept { return subdivisions_; }
    /// Pixels added to every coordinate of this axis, and the position of the other axis' line.
    [[nodiscard]] constexpr int GetPixelOffset() const noexcept { return pixelOffset_; }

    constexpr void SetMinimum(float minimum) noexcept { minimum_ = minimum; }
    constexpr void SetMaximum(float maximum) noexcept { maximum_ = maximum; }
    constexpr void SetStep(float step) noexcept { step_ = step; }
    constexpr void SetSubdivisions(int subdivisions) noexcept { subdivisions_ = subdivisions; }
    constexpr void SetPixelOffset(int pixels) noexcept { pixelOffset_ = pixels; }

    friend constexpr bool operator==(AxisData const&, AxisData const&) noexcept = default;

  private:
    int reserved_ = 0;
    float minimum_ = 0;
    float maximum_ = 1;
    float step_ = 0.2F;
    int subdivisions_ = 4;
    int pixelOffset_ = 0;
};

/// The title and the labels of an axis.
class AxisText {
  public:
    /// No title, and tick labels without decimals.
    AxisText() = default;
    AxisText(sv::String title, int decimals) : title_(std::move(title)), decimals_(decimals) {}

    [[nodiscard]] sv::String const& GetTitle() const noexcept { return title_; }
    /// The decimals of the tick labels.
    [[nodiscard]] int GetDecimals() const noexcept { return decimals_; }

    void SetTitle(sv::String title) noexcept { title_ = std::move(title); }
    void SetDecimals(int decimals) noexcept { decimals_ = decimals; }

    friend bool operator==(AxisText const&, AxisText const&) = default;

  private:
    sv::String title_;
    int decimals_ = 0;
};

}  // namespace kv
