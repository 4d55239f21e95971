#include "Apps/kvcolor/Measures.h"

#include "Apps/kvcolor/Numbers.h"
#include "Apps/kvcolor/Text.h"
#include "Apps/kvcolor/Unusable.h"
#include "KVUtils/Source/colorimetry/dLCHVector.h"
#include "KVUtils/Source/metrics/DeltaE.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kvcolor {

namespace {

struct MeasureText {
    Measure measure;
    char const* name;
    char const* key;
    char const* header;
};

constexpr std::array<MeasureText, MeasureCount> Texts = {{
    {Measure::Cielab, "cielab", "dE_ab", "dE*ab"},
    {Measure::DeltaL, "dL", "dL", "dL*"},
    {Measure::DeltaC, "dC", "dC", "dC*"},
    {Measure::DeltaH, "dH", "dH", "dH*"},
    {Measure::Cmc, "cmc", "dE_CMC", "CMC"},
    {Measure::Cie94, "cie94", "dE_94", "CIE94"},
    {Measure::Fmc2, "fmc2", "dE_FMC2", "FMC-II"},
    {Measure::Mg, "mg", "dE_mg", "mg"},
    {Measure::Korvel1, "korvel1", "dE_KORVEL1", "KORVEL1"},
    {Measure::Korvel2, "korvel2", "dE_KORVEL2", "KORVEL2"},
}};

std::string NamesOfMeasures() {
    std::vector<std::string> names;
    names.reserve(Texts.size());
    for (MeasureText const& text : Texts) names.emplace_back(text.name);
    return List(names, names.size());
}

}  // namespace

bool IsSigned(Measure measure) noexcept {
    return measure == Measure::DeltaL || measure == Measure::DeltaC || measure == Measure::DeltaH;
}

Column ColumnOf(Measure measure, MeasureWeights const& weights) {
    MeasureText const& text = *std::ranges::find(Texts, measure, &MeasureText::measure);
    std::string header = text.header;
    if (measure == Measure::Cmc) header += '(' + Shortest(weights.cmcL) + ':' + Shortest(weights.cmcC) + ')';
    return NumberColumn(text.key, header);
}

std::vector<Measure> ParseMeasures(std::string_view text) {
    std::vector<Measure> measures;
    if (text.empty()) {
        for (MeasureText const& row : Texts) measures.push_back(row.measure);
        return measures;
    }
    for (std::string_view const name : Split(text, ',')) {
        auto const* const row =
            std::ranges::find(Texts, Lower(name), [](MeasureText const& t) { return Lower(t.name); });
        if (row == Texts.end()) {
            throw Unusable("no measure \"" + std::string(name) + "\": there are " + NamesOfMeasures());
        }
        if (std::ranges::find(measures, row->measure) == measures.end()) measures.push_back(row->measure);
    }
    return measures;
}

MeasureWeights ParseMeasureWeights(std::string_view cmc, std::string_view k94) {
    auto const parse = [](char const* option, std::string_view text, std::size_t count, char const* form) {
        if (auto const weights = ParseWeights(text, count)) return *weights;
        throw Unusable(std::string(option) + ": found \"" + std::string(text) +
                       "\", expected numbers above 0 as " + form);
    };
    auto const cmcWeights = parse("--cmc", cmc, 2, "l:c, such as 2:1");
    auto const kWeights = parse("--k", k94, 3, "kL:kC:kH, such as 1:1:1");
    return {cmcWeights[0], cmcWeights[1], {kWeights[0], kWeights[1], kWeights[2]}};
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

}  // namespace kvcolor
