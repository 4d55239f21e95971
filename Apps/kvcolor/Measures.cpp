#include "Apps/kvcolor/Measures.h"

#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/output/Numbers.h"
#include "Apps/kvcolor/output/Text.h"

#include <algorithm>
#include <array>
#include <string>

namespace kvcolor {

namespace {

struct MeasureText {
    Measure measure;
    char const* name;
    char const* key;
};

constexpr std::array<MeasureText, evaluation::MeasureCount> Texts = {{
    {Measure::Cielab, "cielab", "dE_ab"},
    {Measure::DeltaL, "dL", "dL"},
    {Measure::DeltaC, "dC", "dC"},
    {Measure::DeltaH, "dH", "dH"},
    {Measure::Cmc, "cmc", "dE_CMC"},
    {Measure::Cie94, "cie94", "dE_94"},
    {Measure::Fmc2, "fmc2", "dE_FMC2"},
    {Measure::Mg, "mg", "dE_mg"},
    {Measure::Korvel1, "korvel1", "dE_KORVEL1"},
    {Measure::Korvel2, "korvel2", "dE_KORVEL2"},
}};

std::string NamesOfMeasures() {
    std::vector<std::string> names;
    names.reserve(Texts.size());
    for (MeasureText const& text : Texts) names.emplace_back(text.name);
    return List(names, names.size());
}

}  // namespace

Column ColumnOf(Measure measure, MeasureWeights const& weights) {
    MeasureText const& text = *std::ranges::find(Texts, measure, &MeasureText::measure);
    return NumberColumn(text.key, evaluation::TitleOf(measure, weights));
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

}  // namespace kvcolor
