// Swatch: a sample's colour on the screen, and how a terminal is told to show it.
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

/// The colour of a spectrum under D65 with the 2 degree observer. What the screen cannot show is clipped.
[[nodiscard]] Rgb ToRgb(kv::Spectrum const& spectrum) noexcept;

enum class ColourDepth : int { None, Palette256, TrueColour };

/// What the terminal of standard output can show. None for anything but a terminal, for TERM=dumb, and where
/// NO_COLOR is set and not empty.
[[nodiscard]] ColourDepth DepthOf(Environment const& environment);

/// Two blanks on this background. The depth is not None.
[[nodiscard]] std::string SwatchText(Rgb const& colour, ColourDepth depth);

}  // namespace kvcolor
