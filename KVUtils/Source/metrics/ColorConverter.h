// ColorConverter: measured colours for the screen, and names for them.
#pragma once

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/metrics/RGBVector.h"
#include "SV/core/Color.h"
#include "SV/core/String.h"
#include "SV/ui/Bitmap.h"
#include "SV/ui/Drawing.h"

namespace kv {

/// The number of a colour name in the text group "FarbTexte", 0 to 15.
enum FarbNummerType : int {};

class ColorConverter {
  public:
    ColorConverter() = delete;

    /// Channels from 0 to 65535, clipped, here and below.
    [[nodiscard]] static sv::Color RGBToColor(RGBVector const& rgb) noexcept;
    /// From percentages of C, M, Y, K: each channel is the light less its ink and less black.
    [[nodiscard]] static sv::Color CMYKToColor(float const* cmyk) noexcept;
    /// By way of `RGBVector`. One operation under two names.
    [[nodiscard]] static sv::Color SpectrumToColor(Spectrum const& spectrum) noexcept;
    [[nodiscard]] static sv::Color ConvertSpectrumToColor(Spectrum const& spectrum) noexcept;

    // A solid brush of the colour.
    [[nodiscard]] static sv::Brush SpectrumToBrush(Spectrum const& spectrum) noexcept;
    [[nodiscard]] static sv::Brush LabToBrush(LABVector const& lab) noexcept;

    /// The size of a swatch where none is given, in pixels.
    static constexpr sv::Size SwatchSize{20, 20};
    // A swatch of the colour within a white and a black frame of one pixel each; all white where only the
    // frames would fit.
    [[nodiscard]] static sv::Bitmap SpectrumToBitmap(Spectrum const& spectrum,
                                                     sv::Size const& size = SwatchSize);
    [[nodiscard]] static sv::Bitmap LabToBitmap(LABVector const& lab, sv::Size const& size = SwatchSize);
    [[nodiscard]] static sv::Bitmap ColorToBitmap(sv::Color color, sv::Size const& size = SwatchSize);

    /// The name of the colour in the language of the texts that are loaded; empty without the group.
    [[nodiscard]] static sv::String Farbzuordnung(Spectrum const& spectrum);
    [[nodiscard]] static sv::String Farbzuordnung(LABVector const& lab);
    /// The number of the colour's name: 13 to 15 for the neutrals from light to dark, 1 to 12 by hue, and 0
    /// for the hues near red and for NaN.
    [[nodiscard]] static FarbNummerType FarbNummer(LABVector const& lab) noexcept;

  private:
    [[nodiscard]] static sv::Bitmap BuildBitmap(sv::Brush const& brush, sv::Size const& size);
};

}  // namespace kv
