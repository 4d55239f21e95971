// Measures: the colour differences on offer, and how one pair of samples is rated by each of them.
#pragma once

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

#include <array>
#include <string>
#include <string_view>

namespace evaluation {

/// l:c of CMC and kL:kC:kH of CIE94.
struct MeasureWeights {
    float cmcL = 2;
    float cmcC = 1;
    std::array<float, 3> k94 = {1, 1, 1};
};

enum class Measure : int { Cielab, DeltaL, DeltaC, DeltaH, Cmc, Cie94, Fmc2, Mg, Korvel1, Korvel2 };
inline constexpr int MeasureCount = 10;

/// Whether the measure is a component with a sign and not a distance.
[[nodiscard]] bool IsSigned(Measure measure) noexcept;
/// "dE*ab", "CMC", ... without weights; the same in every language.
[[nodiscard]] std::string_view NameOf(Measure measure) noexcept;

/// The same with the weights that a reader has to know: "CMC(2:1)".
[[nodiscard]] std::string TitleOf(Measure measure, MeasureWeights const& weights);

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

}  // namespace evaluation
