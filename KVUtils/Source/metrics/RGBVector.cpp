#include "KVUtils/Source/metrics/RGBVector.h"

#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"
#include "KVUtils/Source/metrics/detail/DisplayMatrix.h"

namespace kv {

namespace {

/// The level [0, 255] of a linear value. Two entries of the table make a level; values beyond the table end
/// at its ends.
int Level(std::span<float const, CMetry::GammaEntries> gamma, float value) noexcept {
    int low = 0;
    int high = CMetry::GammaEntries - 1;
    for (int probe = CMetry::GammaEntries / 2; probe != low; probe = low + (high - low) / 2) {
        (value >= gamma[static_cast<std::size_t>(probe)] ? low : high) = probe;
    }
    return (value < gamma[static_cast<std::size_t>(low)] ? low - 1 : low) / 2;
}

void ToDisplay(float* channels, std::array<float, 3> const& xyz) noexcept {
    constexpr float percentPerLevel = 0.39215687F;  // 100 / 255
    std::array<float, 3> linear{};
    LinAlg::MxV(linear.data(), detail::DisplayMatrix.data(), xyz.data(), 3, 3, 3);
    for (int i = 0; i < 3; ++i) {
        int const level = Level(CMetry::GammaTable(i), linear[static_cast<std::size_t>(i)]);
        channels[i] = static_cast<float>(level * double{percentPerLevel});
    }
}

}  // namespace

RGBVector::RGBVector(Spectrum const& spectrum) noexcept : ColorVector(CMetry::RGBFilter, spectrum) {
    double const sumOfY = CMetry::RGBFilter[1].FilterSumme();
    std::array<float, 3> xyz{};
    for (int i = 0; i < 3; ++i)
        xyz[static_cast<std::size_t>(i)] = static_cast<float>(100 * double{(*this)[i]} / sumOfY);
    ToDisplay(getV(), xyz);
}

RGBVector::RGBVector(LABVector const& lab) noexcept : ColorVector(lab) {
    XYZVector const xyz(lab);
    ToDisplay(getV(), {xyz[0], xyz[1], xyz[2]});
}

}  // namespace kv
