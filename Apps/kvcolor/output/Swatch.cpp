#include "Apps/kvcolor/output/Swatch.h"

#include "Apps/files/Text.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

#include <algorithm>
#include <cmath>

namespace kvcolor {

namespace {

/// Encodes linear light [0, 1] as 0 to 255.
std::uint8_t Encode(double linear) noexcept {
    double const v = std::clamp(linear, 0.0, 1.0);
    double const encoded = v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(255 * encoded));
}

/// Returns the nearest entry of the 256-colour palette: of its cube of 6 x 6 x 6 colours or its ramp of
/// greys.
int PaletteIndex(Rgb const& colour) noexcept {
    constexpr std::array<int, 6> levels = {0, 95, 135, 175, 215, 255};
    auto const square = [](int x) { return x * x; };

    int cubeIndex = 0;
    int cubeDistance = 0;
    int sum = 0;
    for (std::uint8_t const channel : colour) {
        auto const distance = [&](int level) { return std::abs(level - channel); };
        auto const* const nearest = std::ranges::min_element(levels, {}, distance);
        cubeIndex = 6 * cubeIndex + static_cast<int>(nearest - levels.begin());
        cubeDistance += square(*nearest - channel);
        sum += channel;
    }

    // 24 greys: 8, 18, ... 238.
    int const grey = std::clamp((sum / 3 - 3) / 10, 0, 23);
    int greyDistance = 0;
    for (std::uint8_t const channel : colour) greyDistance += square(8 + 10 * grey - channel);
    return greyDistance < cubeDistance ? 232 + grey : 16 + cubeIndex;
}

}  // namespace

Rgb ToRgb(kv::Spectrum const& spectrum) noexcept {
    kv::XYZVector const xyz(kv::CMetry::RGBFilter, spectrum);
    double const X = xyz[0] / 100.0, Y = xyz[1] / 100.0, Z = xyz[2] / 100.0;
    return {Encode(3.2406 * X - 1.5372 * Y - 0.4986 * Z), Encode(-0.9689 * X + 1.8758 * Y + 0.0415 * Z),
            Encode(0.0557 * X - 0.2040 * Y + 1.0570 * Z)};
}

ColourDepth DepthOf(Environment const& environment) {
    if (!environment.outIsTerminal || !environment.variable("NO_COLOR").empty()) return ColourDepth::None;
    std::string const term = files::Lower(environment.variable("TERM"));
    if (term == "dumb") return ColourDepth::None;
    std::string const colours = files::Lower(environment.variable("COLORTERM"));
    if (colours == "truecolor" || colours == "24bit") return ColourDepth::TrueColour;
    return term.find("256color") != std::string::npos ? ColourDepth::Palette256 : ColourDepth::None;
}

std::string SwatchText(Rgb const& colour, ColourDepth depth) {
    std::string background;
    if (depth == ColourDepth::TrueColour) {
        background = "2";
        for (std::uint8_t const channel : colour) background += ';' + std::to_string(channel);
    } else {
        background = "5;" + std::to_string(PaletteIndex(colour));
    }
    return "\x1B[48;" + background + "m  \x1B[0m";
}

}  // namespace kvcolor
