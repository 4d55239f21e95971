#include "Apps/evaluation/ColourSheet.h"

#include "Apps/evaluation/Conditions.h"
#include "KVUtils/Source/colorimetry/CMetry.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string_view>
#include <utility>

namespace evaluation {

namespace {

/// Returns whether a value is within a limit; NaN never is.
bool IsWithin(double limit, float value) noexcept { return limit == 0 || std::fabs(value) <= limit; }

void DropPastEnd(std::optional<std::size_t>& index, std::size_t count) noexcept {
    if (index && *index >= count) index.reset();
}

}  // namespace

Judgement Judge(kv::Spectrum const& sample, kv::Spectrum const& standard,
                Tolerances const& tolerances) noexcept {
    Pair const pair(sample, standard);
    auto const rate = [&](DifferenceFormula formula) { return pair.Rate(formula, tolerances.weights); };
    Judgement judgement{
        rate(tolerances.formula),
        {rate(DifferenceFormula::DeltaL), rate(DifferenceFormula::DeltaC), rate(DifferenceFormula::DeltaH)},
        false};
    judgement.isWithin = IsWithin(tolerances.difference, judgement.difference);
    for (std::size_t i = 0; i < judgement.components.size(); ++i) {
        judgement.isWithin =
            judgement.isWithin && IsWithin(tolerances.components[i], judgement.components[i]);
    }
    return judgement;
}

bool Tolerances::HasLimits() const noexcept {
    return difference != 0 || std::ranges::any_of(components, [](double limit) { return limit != 0; });
}

char InkOfFilter(int filter) noexcept {
    constexpr std::string_view Inks = "VCMY";
    return Inks[static_cast<std::size_t>(filter)];
}

ColourSheet::ColourSheet(files::MeasurementFile file) : file_(std::move(file)) {
    SheetConditions conditions;
    if (file_.stated.illuminant) conditions.illuminant = *file_.stated.illuminant;
    if (file_.stated.observer) conditions.observer = *file_.stated.observer;
    Change(conditions);
}

void ColourSheet::Change(SheetConditions conditions) {
    std::size_t const count = file_.samples.size();
    DropPastEnd(conditions.paper, count);
    DropPastEnd(conditions.standard, count);
    conditions_ = conditions;
    ApplyConditions(conditions.illuminant, conditions.observer, conditions.densityStandard);
    if (conditions.paper) kv::CMetry::EnterWhite(file_.samples[*conditions.paper].spectrum);
    rows_.clear();
    rows_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) rows_.push_back(RowOf(i));
    verdict_ = VerdictOn(AllSamples());
}

SheetRow ColourSheet::RowOf(std::size_t index) const {
    kv::Spectrum const& spectrum = file_.samples[index].spectrum;
    kv::LABVector const lab(spectrum);
    kv::DensityVector const density(spectrum, true);
    SheetRow row{lab,
                 kv::LChVector(lab),
                 density,
                 density.AutoFilter(),
                 kv::ColorConverter::SpectrumToColor(spectrum),
                 kv::ColorConverter::FarbNummer(lab),
                 std::nullopt};
    if (conditions_.standard && *conditions_.standard != index) {
        row.judgement =
            Judge(spectrum, file_.samples[*conditions_.standard].spectrum, conditions_.tolerances);
    }
    return row;
}

SheetVerdict ColourSheet::VerdictOn(std::span<std::size_t const> samples) const noexcept {
    SheetVerdict verdict;
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t const sample : samples) {
        if (!rows_[sample].judgement) continue;
        Judgement const& judgement = *rows_[sample].judgement;
        ++verdict.judged;
        verdict.within += judgement.isWithin ? 1U : 0U;
        float const size = std::fabs(judgement.difference);
        if (std::isnan(size)) continue;
        if (count++ == 0 || size > verdict.largest) {
            verdict.largest = size;
            verdict.whereLargest = sample;
        }
        sum += size;
    }
    if (count > 0) verdict.mean = static_cast<float>(sum / static_cast<double>(count));
    return verdict;
}

std::vector<std::size_t> ColourSheet::AllSamples() const {
    std::vector<std::size_t> samples(rows_.size());
    std::iota(samples.begin(), samples.end(), 0U);
    return samples;
}

}  // namespace evaluation
