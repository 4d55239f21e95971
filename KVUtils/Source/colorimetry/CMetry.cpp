#include "KVUtils/Source/colorimetry/CMetry.h"

#include "KVUtils/Source/colorimetry/detail/StandardFilters.h"
#include "KVUtils/Source/metrics/detail/StandardDensity.h"

#include <cmath>
#include <cstdlib>

namespace kv {

constinit CMetryFilter CMetry::LXYZFilter = StandardFilters::D65TwoDegrees();
constinit CMetryFilter CMetry::RGBFilter = StandardFilters::D65TwoDegrees();
constinit Filter CMetry::xyzSumme;
constinit DichteFilter CMetry::aDichteFilter = StandardDensity::Filters(DStdType::Din);
constinit PhysicalConditions CMetry::aPhysicalCondition;
constinit Spectrum CMetry::amPaperWhiteSpec;
constinit unsigned char CMetry::PapierSpektrumDefiniert = 0;
constinit std::array<float, 4> CMetry::PapierweissNormfaktor{};
constinit std::array<std::array<float, CMetry::GammaEntries>, 3> CMetry::gamma_{};

void CMetry::SetCMetry(IllumClass const& illuminant, ObserverClass const& observer) {
    Lichtart const light(illuminant);
    Observer const functions(observer);
    if (illuminant != IllumType::Custom) {
        float* const sum = xyzSumme;
        for (int k = 0; k < SpectralPoints; ++k) {
            auto const at = [&](int function) { return double{functions[function].Weights()[k]}; };
            sum[k] = static_cast<float>(at(0) + at(2) + at(1));
        }
    }
    LXYZFilter = CMetryFilter(light, functions);
    RGBFilter = CMetryFilter();
}

void CMetry::SetCustomLXYZ(CMetryFilter const& weights) noexcept { LXYZFilter = weights; }

void CMetry::SetDensityStandard(DStdClass const& standard) noexcept {
    aDichteFilter = DichteFilter(standard);
}

void CMetry::EnterWhite(Spectrum const& white) noexcept {
    double sum = 0;
    for (int k = 0; k < SpectralPoints; ++k) sum += white[k];
    if (sum == 0) {
        PapierSpektrumDefiniert = 0;
        return;
    }
    amPaperWhiteSpec = white;
    PapierSpektrumDefiniert = 1;
    for (int i = 0; i < 4; ++i) PapierweissNormfaktor[i] = aDichteFilter[i] * white;
}

void CMetry::SetMeasuringConditions(MeasuringCondition const& condition) {
    SetCMetry(condition.GetIllum(), condition.GetObserver());
    SetDensityStandard(condition.GetDStd());
    aPhysicalCondition = condition;

    std::array<float, GammaEntries>& table = gamma_[0];
    double t = 0;
    for (std::size_t k = 1; k < GammaEntries; ++k) {
        t += 0.5;
        table[k] = static_cast<float>(std::pow(t * 0.00392156862745098, 1.0 / 0.45));
    }
    gamma_[1] = gamma_[2] = table;
}

void CMetry::GetMeasuringConditions(MeasuringCondition& condition) noexcept {
    condition = MeasuringCondition(GetIllum(), GetObserver(), aDichteFilter.GetDStd(), aPhysicalCondition);
}

short CMetry::GetMaxDensity(Spectrum const& spectrum, float& density, bool relative) noexcept {
    constexpr int first = 3;    // 410 nm
    constexpr int last = 32;    // 700 nm
    constexpr int centre = 18;  // 560 nm
    bool const divide = relative && PapierSpektrumDefiniert != 0;

    density = 0;
    int best = 0;
    for (int k = first; k <= last; ++k) {
        float sample = spectrum[k];
        if (divide && amPaperWhiteSpec[k] != 0) {
            sample = static_cast<float>(double{sample} / double{amPaperWhiteSpec[k]});
        }
        if (!(sample > 0)) continue;
        auto const d = static_cast<float>(-std::log10(double{sample}));
        if (d > density) {
            density = d;
            best = k;
        } else if (d == density && std::abs(k - centre) <= std::abs(best - centre)) {
            best = k;
        }
    }
    return static_cast<short>(Wavelength(best));
}

void CMetry::ToEqualStrength(Spectrum& spectrum, Spectrum const& reference) noexcept {
    constexpr double leastStrength = 0.0001;
    auto const strength = [](double r) { return r > 0 && r <= 1 ? (1 - r) * (1 - r) * 0.5 / r : 0.0; };

    double sum = 0;
    double referenceSum = 0;
    for (int k = 0; k < SpectralPoints; ++k) {
        referenceSum += strength(reference[k]);  // first, as both may be one object
        spectrum[k] = static_cast<float>(strength(spectrum[k]));
        sum += spectrum[k];
    }
    auto const ownSum = static_cast<float>(sum > leastStrength ? sum : leastStrength);
    double const factor = ownSum / (referenceSum > leastStrength ? referenceSum : leastStrength);

    for (int k = 0; k < SpectralPoints; ++k) {
        auto const v = static_cast<float>(spectrum[k] / factor);
        double const radicand = (v + 2.0) * v;
        spectrum[k] = static_cast<float>(radicand > 0 ? v + 1.0 - std::sqrt(radicand) : v + 1.0);
    }
}

std::span<float const, CMetry::GammaEntries> CMetry::GammaTable(int channel) noexcept {
    return gamma_[channel];
}

}  // namespace kv
