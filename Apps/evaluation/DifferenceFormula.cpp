#include "Apps/evaluation/DifferenceFormula.h"

#include "KVUtils/Source/colorimetry/dLCHVector.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/metrics/DeltaE.h"

#include <limits>

namespace evaluation {

namespace {

/// By the measure.
constexpr std::array<std::string_view, MeasureCount> Names = {"dE*ab", "dL*",    "dC*", "dH*",     "CMC",
                                                              "CIE94", "FMC-II", "mg",  "KORVEL1", "KORVEL2"};

}  // namespace

bool IsSigned(Measure measure) noexcept {
    return measure == Measure::DeltaL || measure == Measure::DeltaC || measure == Measure::DeltaH;
}

std::string_view NameOf(Measure measure) noexcept { return Names[static_cast<std::size_t>(measure)]; }

std::string TitleOf(Measure measure, MeasureWeights const& weights) {
    std::string title(NameOf(measure));
    if (measure != Measure::Cmc) return title;
    auto const number = [](float weight) {
        constexpr int Decimals = 6;
        return std::string(kv::fString(weight, Decimals, 1, 0).View());
    };
    return title + '(' + number(weights.cmcL) + ':' + number(weights.cmcC) + ')';
}

Pair::Pair(kv::Spectrum const& sample, kv::Spectrum const& standard) noexcept
    : sampleLab_(sample), standardLab_(standard), sampleXyz_(sample), standardXyz_(standard) {}

float Pair::Rate(Measure measure, MeasureWeights const& weights) const noexcept {
    // What the library returns for a standard without light.
    constexpr float undefined = 99999.99F;
    switch (measure) {
        case Measure::Cielab:
            return kv::DeltaE::CIELAB(sampleLab_, standardLab_);
        case Measure::DeltaL:
            return kv::dLCHVector(sampleLab_, standardLab_)[0];
        case Measure::DeltaC:
            return kv::dLCHVector(sampleLab_, standardLab_)[1];
        case Measure::DeltaH:
            return kv::dLCHVector(sampleLab_, standardLab_)[2];
        case Measure::Cmc:
            return kv::DeltaE::CMC(sampleLab_, standardLab_, weights.cmcL, weights.cmcC);
        case Measure::Cie94:
            return kv::DeltaE::dE94(sampleXyz_, standardXyz_, weights.k94[0], weights.k94[1], weights.k94[2]);
        case Measure::Fmc2: {
            float const difference = kv::DeltaE::FMCII(sampleXyz_, standardXyz_);
            return difference == undefined ? std::numeric_limits<float>::quiet_NaN() : difference;
        }
        case Measure::Mg:
            return kv::DeltaE::LABmg(sampleXyz_, standardXyz_);
        case Measure::Korvel1:
            return kv::DeltaE::dEKORVEL1(sampleLab_, standardLab_);
        case Measure::Korvel2:
            return kv::DeltaE::dEKORVEL2(sampleLab_, standardLab_);
    }
    return std::numeric_limits<float>::quiet_NaN();
}

}  // namespace evaluation
