// The values that drawing uses: pens, brushes, fonts, and the map from logical coordinates to pixels.
#pragma once

#include "SV/core/Color.h"
#include "SV/core/ForeignMacros.h"
#include "SV/core/Geometry.h"

#include <cstdint>

namespace sv {

/// The colours that the suite's windows use by number.
enum class ColorName : int {
    Black = 0,
    Highlight = 2,  // the face of a button under the pointer
    White = 15,
    Help = 21  // the background of help texts
};

[[nodiscard]] constexpr Color ColorOf(ColorName name) noexcept {
    constexpr auto channel = [](int code) { return static_cast<std::uint16_t>(code * 257); };
    switch (name) {
        case ColorName::Highlight:
            return {channel(0xD6), channel(0xE8), channel(0xF7)};
        case ColorName::White:
            return {channel(0xFF), channel(0xFF), channel(0xFF)};
        case ColorName::Help:
            return {channel(0xFF), channel(0xFB), channel(0xDC)};
        case ColorName::Black:
            break;
    }
    return {};
}

enum class PenStyle : int { None = 0, Solid = 1, Dash = 2 };

class Pen {
  public:
    /// Black, one unit wide, solid.
    constexpr Pen() noexcept = default;
    constexpr explicit Pen(Color color, std::uint16_t width = 1, PenStyle style = PenStyle::Solid) noexcept
        : color_(color), width_(width), style_(style) {}

    [[nodiscard]] constexpr Color GetColor() const noexcept { return color_; }
    /// In units of the map mode; 0 counts as 1.
    [[nodiscard]] constexpr std::uint16_t GetWidth() const noexcept { return width_; }
    [[nodiscard]] constexpr PenStyle GetStyle() const noexcept { return style_; }
    constexpr void ChangeColor(Color color) noexcept { color_ = color; }
    constexpr void ChangeWidth(std::uint16_t width) noexcept { width_ = width; }
    constexpr void ChangeStyle(PenStyle style) noexcept { style_ = style; }

    friend constexpr bool operator==(Pen const&, Pen const&) noexcept = default;

  private:
    Color color_;
    std::uint16_t width_ = 1;
    PenStyle style_ = PenStyle::Solid;
};

enum class BrushStyle : int { None = 0, Solid = 1 };

class Brush {
  public:
    /// White, solid.
    constexpr Brush() noexcept : Brush(ColorName::White) {}
    constexpr explicit Brush(Color color, BrushStyle style = BrushStyle::Solid) noexcept
        : Brush(color, color, style) {}
    constexpr explicit Brush(ColorName name) noexcept : Brush(ColorOf(name)) {}
    /// `fill` is the second colour of a pattern; a solid brush does not show it.
    constexpr Brush(Color color, Color fill, BrushStyle style) noexcept
        : color_(color), fill_(fill), style_(style) {}

    [[nodiscard]] constexpr Color GetColor() const noexcept { return color_; }
    [[nodiscard]] constexpr Color GetFillColor() const noexcept { return fill_; }
    [[nodiscard]] constexpr BrushStyle GetStyle() const noexcept { return style_; }
    constexpr void ChangeColor(Color color) noexcept { color_ = color; }
    constexpr void ChangeStyle(BrushStyle style) noexcept { style_ = style; }

    friend constexpr bool operator==(Brush const&, Brush const&) noexcept = default;

  private:
    Color color_;
    Color fill_;
    BrushStyle style_;
};

enum class FontPitch : int { Variable = 0, Fixed = 1 };
enum class FontWeight : int { Normal = 0, Light = 1, Bold = 3 };

class Font {
  public:
    /// The system's font for controls.
    constexpr Font() noexcept = default;
    /// `height` is that of a line, in units of the map mode; 0 for the system's own.
    constexpr explicit Font(std::uint16_t height, FontPitch pitch = FontPitch::Variable,
                            FontWeight weight = FontWeight::Normal) noexcept
        : height_(height), pitch_(pitch), weight_(weight) {}

    [[nodiscard]] constexpr std::uint16_t GetHeight() const noexcept { return height_; }
    /// The average width of a letter; 0 for the width that suits the height.
    [[nodiscard]] constexpr std::uint16_t GetWidth() const noexcept { return width_; }
    [[nodiscard]] constexpr Size GetSize() const noexcept { return {width_, height_}; }
    [[nodiscard]] constexpr FontPitch GetPitch() const noexcept { return pitch_; }
    [[nodiscard]] constexpr FontWeight GetWeight() const noexcept { return weight_; }
    [[nodiscard]] constexpr Color GetColor() const noexcept { return color_; }
    /// A negative side counts as 0.
    constexpr void ChangeSize(Size size) noexcept {
        width_ = static_cast<std::uint16_t>(size.Width() > 0 ? size.Width() : 0);
        height_ = static_cast<std::uint16_t>(size.Height() > 0 ? size.Height() : 0);
    }
    constexpr void ChangeWeight(FontWeight weight) noexcept { weight_ = weight; }
    constexpr void ChangeColor(Color color) noexcept { color_ = color; }

    friend constexpr bool operator==(Font const&, Font const&) noexcept = default;

  private:
    std::uint16_t width_ = 0;
    std::uint16_t height_ = 0;
    FontPitch pitch_ = FontPitch::Variable;
    FontWeight weight_ = FontWeight::Normal;
    Color color_;
};

/// A ratio, stored as its quotient.
class Fraction {
  public:
    constexpr explicit Fraction(double value) noexcept : value_(value) {}
    constexpr operator double() const noexcept { return value_; }

  private:
    double value_;
};

enum class MapUnit : int { TenthMillimetre = 1, Pixel = 10 };

/// Maps logical to pixel coordinates: adds the origin, then multiplies by the scale of each axis and the
/// number of pixels per unit. Pens, letters and pictures are scaled by the unit alone.
class MapMode {
  public:
    /// Pixels, y growing downward from the top left corner.
    constexpr MapMode() noexcept = default;
    constexpr explicit MapMode(MapUnit unit) noexcept : unit_(unit) {}
    constexpr MapMode(MapUnit unit, Point origin, Fraction scaleX, Fraction scaleY) noexcept
        : unit_(unit), origin_(origin), scaleX_(scaleX), scaleY_(scaleY) {}

    [[nodiscard]] constexpr MapUnit GetMapUnit() const noexcept { return unit_; }
    [[nodiscard]] constexpr Point GetOrigin() const noexcept { return origin_; }
    [[nodiscard]] constexpr double GetScaleX() const noexcept { return scaleX_; }
    [[nodiscard]] constexpr double GetScaleY() const noexcept { return scaleY_; }
    /// Whether y grows upward.
    [[nodiscard]] constexpr bool IsUpward() const noexcept { return scaleY_ < 0.0; }

    friend constexpr bool operator==(MapMode const& a, MapMode const& b) noexcept {
        return a.unit_ == b.unit_ && a.origin_ == b.origin_ && double{a.scaleX_} == double{b.scaleX_} &&
               double{a.scaleY_} == double{b.scaleY_};
    }

  private:
    MapUnit unit_ = MapUnit::Pixel;
    Point origin_;
    Fraction scaleX_{1.0};
    Fraction scaleY_{1.0};
};

}  // namespace sv
