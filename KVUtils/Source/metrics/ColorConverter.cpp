#include "KVUtils/Source/metrics/ColorConverter.h"

#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/metrics/detail/ColourNameTable.h"
#include "SV/ui/VirtualDevice.h"

#include <cmath>
#include <cstdint>

namespace kv {

namespace {

constexpr double FullChannel = 65536;
constexpr double ChannelPerPercent = 655.36;
constexpr std::uint16_t LargestChannel = 65535;

constexpr int NoHue = -1;

std::uint16_t Channel(double value) noexcept {
    if (!(value > 0)) return 0;
    return value < LargestChannel ? static_cast<std::uint16_t>(value) : LargestChannel;
}

/// The hue in whole degrees. Intentional: 57 and not 180 / pi, since the limits between the names were set
/// with it.
int HueOf(double a, double b) noexcept {
    constexpr double degreesPerRadian = 57.0;
    if (std::isnan(a) || std::isnan(b) || (a == 0 && b == 0)) return NoHue;
    if (a == 0) return b > 0 ? 90 : 270;
    double const ratio = b / a;
    if (std::isnan(ratio)) return NoHue;
    int const h = static_cast<int>(std::atan(ratio) * degreesPerRadian);
    if (a < 0) return h + 180;
    return b < 0 ? h + 360 : h;
}

/// The chroma up to which a colour of this lightness is neutral: from 10 for black over 7 to 5 for white.
double NeutralChroma(double L) noexcept {
    if (L > 75) return 7 - 2 * (L - 75) * 0.04;
    return 10 - L * 0.013333333333333334 * 3;
}

int NameOfNeutral(double L) noexcept {
    if (L > 30 && L <= 80) return 14;
    return L >= 0 && L <= 30 ? 15 : 13;
}

int NameOfHue(int h, double c, double L) noexcept {
    for (detail::ColourNameRule const& rule : detail::ColourNameRules) {
        bool const fits = h >= rule.hueFrom && h <= rule.hueTo && c >= rule.chromaFrom &&
                          c < rule.chromaBelow && L >= rule.lightnessFrom && L < rule.lightnessBelow;
        if (fits) return rule.number;
    }
    return 0;
}

}  // namespace

sv::Color ColorConverter::RGBToColor(RGBVector const& rgb) noexcept {
    return {sv::Color::UserKind, Channel(rgb[0] * ChannelPerPercent), Channel(rgb[1] * ChannelPerPercent),
            Channel(rgb[2] * ChannelPerPercent)};
}

sv::Color ColorConverter::CMYKToColor(float const* cmyk) noexcept {
    auto const channel = [&](int ink) {
        return Channel(FullChannel - (double{cmyk[3]} + double{cmyk[ink]}) * ChannelPerPercent);
    };
    return {channel(0), channel(1), channel(2)};
}

sv::Color ColorConverter::SpectrumToColor(Spectrum const& spectrum) noexcept {
    return RGBToColor(RGBVector(spectrum));
}

sv::Color ColorConverter::ConvertSpectrumToColor(Spectrum const& spectrum) noexcept {
    return SpectrumToColor(spectrum);
}

sv::Brush ColorConverter::SpectrumToBrush(Spectrum const& spectrum) noexcept {
    return sv::Brush(SpectrumToColor(spectrum));
}

sv::Brush ColorConverter::LabToBrush(LABVector const& lab) noexcept {
    return sv::Brush(RGBToColor(RGBVector(lab)));
}

sv::Bitmap ColorConverter::SpectrumToBitmap(Spectrum const& spectrum, sv::Size const& size) {
    return BuildBitmap(SpectrumToBrush(spectrum), size);
}

sv::Bitmap ColorConverter::LabToBitmap(LABVector const& lab, sv::Size const& size) {
    return BuildBitmap(LabToBrush(lab), size);
}

sv::Bitmap ColorConverter::ColorToBitmap(sv::Color color, sv::Size const& size) {
    return BuildBitmap(sv::Brush(color), size);
}

sv::Bitmap ColorConverter::BuildBitmap(sv::Brush const& brush, sv::Size const& size) {
    sv::VirtualDevice device(size);
    device.ChangeFillInBrush(brush);
    device.ChangePen(sv::Pen(sv::ColorOf(sv::ColorName::Black), 1));
    // A far corner at 0 is an area without extent.
    int const right = size.Width() - 2;
    int const bottom = size.Height() - 2;
    if (right > 0 && bottom > 0) device.DrawRect({{1, 1}, {right, bottom}});
    return device.GetBitmap({0, 0}, size);
}

sv::String ColorConverter::Farbzuordnung(Spectrum const& spectrum) {
    return Farbzuordnung(LABVector(spectrum));
}

sv::String ColorConverter::Farbzuordnung(LABVector const& lab) {
    return TextSegment("FarbTexte")[static_cast<unsigned long>(FarbNummer(lab))];
}

FarbNummerType ColorConverter::FarbNummer(LABVector const& lab) noexcept {
    double const L = lab[0], a = lab[1], b = lab[2];
    auto const c = static_cast<float>(std::sqrt(a * a + b * b));
    bool const isNeutral = (a == 0 && b == 0) || NeutralChroma(L) >= c;
    return FarbNummerType(isNeutral ? NameOfNeutral(L) : NameOfHue(HueOf(a, b), c, L));
}

}  // namespace kv
