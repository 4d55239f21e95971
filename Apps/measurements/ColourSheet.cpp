#include "Apps/measurements/ColourSheet.h"

#include "Apps/measurements/Conditions.h"
#include "KVUtils/Source/colorimetry/CMetry.h"

#include <cmath>
#include <utility>

namespace measurements {

namespace {

/// Not-a-number keeps no limit.
bool Keeps(double limit, float value) noexcept { return limit == 0 || std::fabs(value) <= limit; }

void DropPastEnd(std::optional<std::size_t>& index, std::size_t count) noexcept {
    if (index && *index >= count) index.reset();
}

}  // namespace

Judgement Judge(kv::Spectrum const& sample, kv::Spectrum const& standard,
                Tolerances const& tolerances) noexcept {
    Pair const pair(sample, standard);
    auto const rate = [&](Measure measure) { return pair.Rate(measure, tolerances.weights); };
    Judgement judgement{rate(tolerances.measure),
                        {rate(Measure::DeltaL), rate(Measure::DeltaC), rate(Measure::DeltaH)},
                        false};
    judgement.isWithin = Keeps(tolerances.difference, judgement.difference);
    for (std::size_t i = 0; i < judgement.components.size(); ++i) {
        judgement.isWithin = judgement.isWithin && Keeps(tolerances.components[i], judgement.components[i]);
    }
    return judgement;
}

ColourSheet::ColourSheet(MeasurementFile file) : file_(std::move(file)) {
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
    PutInForce(conditions.illuminant, conditions.observer, conditions.densityStandard);
    if (conditions.paper) kv::CMetry::EnterWhite(file_.samples[*conditions.paper].spectrum);
    rows_.clear();
    rows_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) rows_.push_back(RowOf(i));
    Count();
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

void ColourSheet::Count() {
    verdict_ = {};
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (!rows_[i].judgement) continue;
        Judgement const& judgement = *rows_[i].judgement;
        ++verdict_.judged;
        verdict_.within += judgement.isWithin ? 1 : 0;
        float const size = std::fabs(judgement.difference);
        if (size >= verdict_.largest) {
            verdict_.largest = size;
            verdict_.whereLargest = i;
        }
    }
}

}  // namespace measurements
