// Measures: the colour differences on offer, and how one pair of samples is rated by all of them.
#pragma once

#include "Apps/kvcolor/Report.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

struct MeasureWeights {
    float cmcL = 2;
    float cmcC = 1;
    std::array<float, 3> k94 = {1, 1, 1};
};

enum class Measure : int { Cielab, DeltaL, DeltaC, DeltaH, Cmc, Cie94, Fmc2, Mg, Korvel1, Korvel2 };
inline constexpr int MeasureCount = 10;

/// Whether the measure is a component with a sign and not a distance.
[[nodiscard]] bool IsSigned(Measure measure) noexcept;
/// Column of the measure.
[[nodiscard]] Column ColumnOf(Measure measure, MeasureWeights const& weights);
/// "cielab", "dL", "dC", "dH", "cmc", "cie94", "fmc2", "mg", "korvel1", "korvel2", in any case, with commas
/// between several; all for an empty text. Throws Unusable.
[[nodiscard]] std::vector<Measure> ParseMeasures(std::string_view text);
/// The weights from "l:c" and "kL:kC:kH". Throws Unusable.
[[nodiscard]] MeasureWeights ParseMeasureWeights(std::string_view cmc, std::string_view k94);

/// Sample and standard in the forms that measures take, with the conditions in force.
class Pair {
  public:
    Pair(kv::Spectrum const& sample, kv::Spectrum const& standard) noexcept;
    /// Not-a-number where the measure has no value for this pair.
    [[nodiscard]] float Rate(Measure measure, MeasureWeights const& weights) const noexcept;

  private:
    kv::LABVector sampleLab_;
    kv::LABVector standardLab_;
    kv::XYZVector sampleXyz_;
    kv::XYZVector standardXyz_;
};

}  // namespace kvcolor
