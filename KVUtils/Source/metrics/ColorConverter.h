// ColorConverter: measured colours for the screen, and names for them.
#pragma once

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/metrics/RGBVector.h"
#include "SV/core/Color.h"
#include "SV/core/String.h"

namespace kv {

/// The number of a colour name, 0 to 15, in the text group "FarbTexte".
enum FarbNummerType : int {};

class ColorConverter {
  public:
    ColorConverter() = delete;

    /// Channels from 0 to 65535; what lies outside is clipped, here and below.
    [[nodiscard]] static sv::Color RGBToColor(RGBVector const& rgb) noexcept;
    /// From percentages of C, M, Y, K: each channel is the light less its ink and less black.
    [[nodiscard]] static sv::Color CMYKToColor(float const* cmyk) noexcept;
    /// As `RGBVector` does it. One operation under two names.
    [[nodiscard]] static sv::Color SpectrumToColor(Spectrum const& spectrum) noexcept;
    [[nodiscard]] static sv::Color ConvertSpectrumToColor(Spectrum const& spectrum) noexcept;

    /// The name of the colour in the language of the texts that are loaded; empty without the group.
    [[nodiscard]] static sv::String Farbzuordnung(Spectrum const& spectrum);
    [[nodiscard]] static sv::String Farbzuordnung(LABVector const& lab);
    /// The number of the colour's name: 13 to 15 for the neutrals from light to dark, 1 to 12 by hue, and 0
    /// for the hues near red and for what is not a number.
    [[nodiscard]] static FarbNummerType FarbNummer(LABVector const& lab) noexcept;
};

}  // namespace kv
