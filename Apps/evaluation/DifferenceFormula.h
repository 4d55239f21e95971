// DifferenceFormula: the colour difference formulas that users choose from, and the rating of a pair of
// samples by each of them.
#pragma once

#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace evaluation {

/// l:c of CMC and kL:kC:kH of CIE94.
struct FormulaWeights {
    float cmcL = 2;
    float cmcC = 1;
    std::array<float, 3> k94 = {1, 1, 1};
};

enum class DifferenceFormula : int { Cielab, DeltaL, DeltaC, DeltaH, Cmc, Cie94, Fmc2, Mg, Korvel1, Korvel2 };
inline constexpr int FormulaCount = 10;

/// Returns whether the formula gives a component with a sign instead of a distance.
[[nodiscard]] bool IsSigned(DifferenceFormula formula) noexcept;
/// "dE*ab", "CMC", ... without weights, in every language.
[[nodiscard]] std::string_view NameOf(DifferenceFormula formula) noexcept;
/// "dE_ab", "dE_CMC", ...: the name of a column in files.
[[nodiscard]] std::string_view KeyOf(DifferenceFormula formula) noexcept;
/// Returns the name with the weights that matter: "CMC(2:1)".
[[nodiscard]] std::string TitleOf(DifferenceFormula formula, FormulaWeights const& weights);

/// Parses the names of formulas, separated by commas, in any case: "cielab", "dL", "dC", "dH", "cmc",
/// "cie94", "fmc2", "mg", "korvel1", "korvel2". Returns all for an empty text. Throws InputError.
[[nodiscard]] std::vector<DifferenceFormula> ParseFormulas(std::string_view text);
/// Parses the weights "l:c" and "kL:kC:kH". Throws InputError that names --cmc or --k.
[[nodiscard]] FormulaWeights ParseWeights(std::string_view cmc, std::string_view k94);

/// A sample and a standard under the conditions in force, as the formulas take them.
class Pair {
  public:
    Pair(kv::Spectrum const& sample, kv::Spectrum const& standard) noexcept;
    /// Returns NaN if the formula has no value for this pair.
    [[nodiscard]] float Rate(DifferenceFormula formula, FormulaWeights const& weights) const noexcept;

  private:
    kv::LABVector sampleLab_;
    kv::LABVector standardLab_;
    kv::XYZVector sampleXyz_;
    kv::XYZVector standardXyz_;
};

}  // namespace evaluation
