#include "KVUtils/Source/colorimetry/Spectrum18.h"

#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace kv {

Spectrum18::Spectrum18(Spectrum spectrum) noexcept : PhysicalConditions(spectrum) {
    for (int j = 0; j < Points; ++j) {
        double const sum = double{spectrum[2 * j]} + double{spectrum[2 * j + 1]};
        samples_[j] = static_cast<float>(sum * 0.5);
    }
}

unsigned int Spectrum18::GetFloatWord(int i) const noexcept {
    return SpezFloatWord::floatToFloatWord(samples_[i]);
}

namespace {

unsigned int Truncated(double value) noexcept { return static_cast<unsigned int>(value); }

/// Upper nine bits of the mantissa, then how far the exponent lies below that of 2^-6, then 111.
unsigned int PackSmall(float f) noexcept {
    constexpr std::uint32_t exponentOfHighest = 121;
    auto const bits = std::bit_cast<std::uint32_t>(f);
    std::uint32_t const mantissa = (bits >> 14U) & 0x1FFU;
    std::uint32_t const exponent = bits >> 23U;
    return (mantissa << 7U) | ((exponentOfHighest - exponent) << 3U) | 0x7U;
}

}  // namespace

unsigned int SpezFloatWord::floatToFloatWord(float value) noexcept {
    if (!(value > 0.0F)) return 0x7F;
    double f = value;
    if (f > 3.998) f = std::min(f, 4.0 - 0x1p-13);
    if (f >= 1.0) return Truncated(f * 16384) & 0xFFFEU;
    if (f >= 0.25) return (Truncated(f * 65536) & 0xFFFCU) | 0x1U;
    if (f >= 0.03125) return (Truncated(f * 262144) & 0xFFF8U) | 0x3U;
    if (f >= 0x1p-20) return PackSmall(value);
    return Truncated(f * 0x1p36) | 0x7FU;
}

}  // namespace kv
