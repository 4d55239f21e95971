// Measures: the colour differences by the names that people type, and as columns.
#pragma once

#include "Apps/evaluation/DifferenceFormula.h"
#include "Apps/kvcolor/output/Answer.h"

#include <string_view>
#include <vector>

namespace kvcolor {

using evaluation::Measure;
using evaluation::MeasureWeights;
using evaluation::Pair;

/// Column of the measure.
[[nodiscard]] Column ColumnOf(Measure measure, MeasureWeights const& weights);
/// "cielab", "dL", "dC", "dH", "cmc", "cie94", "fmc2", "mg", "korvel1", "korvel2", in any case, with commas
/// between several; all for an empty text. Throws Unusable.
[[nodiscard]] std::vector<Measure> ParseMeasures(std::string_view text);
/// The weights from "l:c" and "kL:kC:kH". Throws Unusable.
[[nodiscard]] MeasureWeights ParseMeasureWeights(std::string_view cmc, std::string_view k94);

}  // namespace kvcolor
