// Swatch: the colour of a sample on the screen, and its escape sequence for a terminal.
#pragma once

#include "Apps/kvcolor/Environment.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace kvcolor {

/// sRGB (IEC 61966-2-1), 0 to 255 each.
using Rgb = std::array<std::uint8_t, 3>;

/// Returns the colour of a spectrum under D65 with the 2 degree observer, clipped to sRGB.
[[nodiscard]] Rgb ToRgb(kv::Spectrum const& spectrum) noexcept;

enum class ColourDepth : int { None, Palette256, TrueColour };

/// Returns what standard output can show: None if it is not a terminal, TERM is dumb, or NO_COLOR is set and
/// not empty.
[[nodiscard]] ColourDepth DepthOf(Environment const& environment);

/// Returns two blanks on this background. The depth is not None.
[[nodiscard]] std::string SwatchText(Rgb const& colour, ColourDepth depth);

}  // namespace kvcolor
