#include "Apps/evaluation/DifferenceFormula.h"

#include "Apps/evaluation/InputError.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"
#include "KVUtils/Source/colorimetry/dLCHVector.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/metrics/DeltaE.h"

#include <algorithm>
#include <limits>

namespace evaluation {

namespace {

struct FormulaTexts {
    std::string_view name;   // for people
    std::string_view key;    // of a column in files
    std::string_view input;  // as users type it
};

/// By formula.
constexpr std::array<FormulaTexts, FormulaCount> Texts = {{
    {"dE*ab", "dE_ab", "cielab"},
    {"dL*", "dL", "dL"},
    {"dC*", "dC", "dC"},
    {"dH*", "dH", "dH"},
    {"CMC", "dE_CMC", "cmc"},
    {"CIE94", "dE_94", "cie94"},
    {"FMC-II", "dE_FMC2", "fmc2"},
    {"mg", "dE_mg", "mg"},
    {"KORVEL1", "dE_KORVEL1", "korvel1"},
    {"KORVEL2", "dE_KORVEL2", "korvel2"},
}};

FormulaTexts const& TextsOf(DifferenceFormula formula) noexcept {
    return Texts[static_cast<std::size_t>(formula)];
}

DifferenceFormula ParseFormula(std::string_view name) {
    std::string const key = files::Key(name);
    auto const* const found =
        std::ranges::find(Texts, key, [](FormulaTexts const& t) { return files::Key(t.input); });
    if (found != Texts.end()) return static_cast<DifferenceFormula>(found - Texts.begin());
    std::vector<std::string> choices;
    for (FormulaTexts const& texts : Texts) choices.emplace_back(texts.input);
    throw InputError("unknown formula " + files::Quoted(name) + " (choose from " + files::List(choices) +
                     ')');
}

/// Parses numbers above 0 separated by ":"; the form shows the option and an example.
template <std::size_t Count>
std::array<float, Count> ParseNumbers(std::string_view text, char const* option, char const* form) {
    std::array<float, Count> weights{};
    auto const pieces = files::Split(text, ':');
    bool isValid = pieces.size() == Count;
    for (std::size_t i = 0; i < Count && isValid; ++i) {
        weights[i] = static_cast<float>(files::ToNumber(pieces[i]).value_or(0));
        isValid = weights[i] > 0 && weights[i] <= std::numeric_limits<float>::max();
    }
    if (isValid) return weights;
    throw InputError(std::string(option) + ": found " + files::Quoted(text) +
                     ", expected numbers above 0 as " + form);
}

}  // namespace

bool IsSigned(DifferenceFormula formula) noexcept {
    using enum DifferenceFormula;
    return formula == DeltaL || formula == DeltaC || formula == DeltaH;
}

std::string_view NameOf(DifferenceFormula formula) noexcept { return TextsOf(formula).name; }
std::string_view KeyOf(DifferenceFormula formula) noexcept { return TextsOf(formula).key; }

std::string TitleOf(DifferenceFormula formula, FormulaWeights const& weights) {
    std::string title(NameOf(formula));
    if (formula != DifferenceFormula::Cmc) return title;
    auto const number = [](float weight) {
        constexpr int Decimals = 6;
        return std::string(kv::fString(weight, Decimals, 1, 0).View());
    };
    return title + '(' + number(weights.cmcL) + ':' + number(weights.cmcC) + ')';
}

std::vector<DifferenceFormula> ParseFormulas(std::string_view text) {
    std::vector<DifferenceFormula> formulas;
    if (text.empty()) {
        for (int i = 0; i < FormulaCount; ++i) formulas.push_back(static_cast<DifferenceFormula>(i));
        return formulas;
    }
    for (std::string_view const name : files::Split(text, ',')) {
        DifferenceFormula const formula = ParseFormula(name);
        if (std::ranges::find(formulas, formula) == formulas.end()) formulas.push_back(formula);
    }
    return formulas;
}

FormulaWeights ParseWeights(std::string_view cmc, std::string_view k94) {
    auto const cmcWeights = ParseNumbers<2>(cmc, "--cmc", "l:c, such as 2:1");
    return {cmcWeights[0], cmcWeights[1], ParseNumbers<3>(k94, "--k", "kL:kC:kH, such as 1:1:1")};
}

Pair::Pair(kv::Spectrum const& sample, kv::Spectrum const& standard) noexcept
    : sampleLab_(sample), standardLab_(standard), sampleXyz_(sample), standardXyz_(standard) {}

float Pair::Rate(DifferenceFormula formula, FormulaWeights const& weights) const noexcept {
    using enum DifferenceFormula;
    switch (formula) {
        case Cielab:
            return kv::DeltaE::CIELAB(sampleLab_, standardLab_);
        case DeltaL:
            return kv::dLCHVector(sampleLab_, standardLab_)[0];
        case DeltaC:
            return kv::dLCHVector(sampleLab_, standardLab_)[1];
        case DeltaH:
            return kv::dLCHVector(sampleLab_, standardLab_)[2];
        case Cmc:
            return kv::DeltaE::CMC(sampleLab_, standardLab_, weights.cmcL, weights.cmcC);
        case Cie94:
            return kv::DeltaE::dE94(sampleXyz_, standardXyz_, weights.k94[0], weights.k94[1], weights.k94[2]);
        case Fmc2: {
            float const difference = kv::DeltaE::FMCII(sampleXyz_, standardXyz_);
            return difference == kv::DeltaE::Undefined ? std::numeric_limits<float>::quiet_NaN() : difference;
        }
        case Mg:
            return kv::DeltaE::LABmg(sampleXyz_, standardXyz_);
        case Korvel1:
            return kv::DeltaE::dEKORVEL1(sampleLab_, standardLab_);
        case Korvel2:
            return kv::DeltaE::dEKORVEL2(sampleLab_, standardLab_);
    }
    return std::numeric_limits<float>::quiet_NaN();
}

}  // namespace evaluation
