// ColourSheet: the patches of a chart as colours under chosen conditions, and whether each is within the
// tolerances. The workbench and the report show it.
#pragma once

#include "Apps/evaluation/DifferenceFormula.h"
#include "Apps/files/MeasurementFile.h"
#include "KVUtils/Source/colorimetry/ColorVector.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/metrics/ColorConverter.h"
#include "KVUtils/Source/metrics/DensityVector.h"
#include "SV/core/Color.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace evaluation {

/// The limits of the difference between a sample and its standard; 0 is no limit.
struct Tolerances {
    DifferenceFormula formula = DifferenceFormula::Cielab;
    FormulaWeights weights;
    double difference = 2;                         // by the formula, without its sign
    std::array<double, 3> components = {0, 0, 0};  // of dL*, dC*, dH*, without their signs

    /// Returns whether there is any limit.
    [[nodiscard]] bool HasLimits() const noexcept;
};

/// The comparison of a sample with its standard.
struct Judgement {
    float difference = 0;             // by the formula; NaN if it has no value
    std::array<float, 3> components;  // dL*, dC*, dH*
    bool isWithin = false;            // false if there is a limit but no value
};

[[nodiscard]] Judgement Judge(kv::Spectrum const& sample, kv::Spectrum const& standard,
                              Tolerances const& tolerances) noexcept;

/// The conditions of a sheet. Indices are those of samples.
struct SheetConditions {
    kv::IllumClass illuminant{kv::IllumType::D50};
    kv::ObserverClass observer{kv::ObserverType::TwoDegrees};
    kv::DStdClass densityStandard{kv::DStdType::AnsiT};
    std::optional<std::size_t> paper;     // densities are relative to it
    std::optional<std::size_t> standard;  // compared with all others
    Tolerances tolerances;
};

/// One patch.
struct SheetRow {
    kv::LABVector lab;
    kv::LChVector lch;
    kv::DensityVector density;           // relative to the paper, if there is one
    int densityFilter;                   // the dominant channel, 0 for visual
    sv::Color swatch;                    // for the screen
    kv::FarbNummerType name;             // number of the colour's name in the text group "FarbTexte"
    std::optional<Judgement> judgement;  // none without a standard and for the standard itself
};

/// Returns the ink that a density filter (0 to 3) measures: 'V' visual, 'C', 'M', 'Y'.
[[nodiscard]] char InkOfFilter(int filter) noexcept;

/// The number of samples compared, and of those within the tolerances.
struct SheetVerdict {
    std::size_t judged = 0;
    std::size_t within = 0;
    // Of the differences that have a value, without their signs:
    float mean = 0;
    float largest = 0;
    std::optional<std::size_t> whereLargest;
};

class ColourSheet {
  public:
    /// Starts with the conditions stated by the file; those of SheetConditions otherwise.
    explicit ColourSheet(files::MeasurementFile file);

    [[nodiscard]] files::MeasurementFile const& File() const noexcept { return file_; }
    [[nodiscard]] SheetConditions const& Conditions() const noexcept { return conditions_; }
    /// Returns one row for each sample, in their order.
    [[nodiscard]] std::span<SheetRow const> Rows() const noexcept { return rows_; }
    [[nodiscard]] SheetVerdict const& Verdict() const noexcept { return verdict_; }
    /// Returns the verdict on some samples.
    [[nodiscard]] SheetVerdict VerdictOn(std::span<std::size_t const> samples) const noexcept;
    /// Returns the indices of all samples.
    [[nodiscard]] std::vector<std::size_t> AllSamples() const;

    /// Computes all rows again and leaves these conditions in force in the library's context. Ignores an
    /// index past the last sample.
    void Change(SheetConditions conditions);

  private:
    [[nodiscard]] SheetRow RowOf(std::size_t index) const;

    files::MeasurementFile file_;
    SheetConditions conditions_;
    std::vector<SheetRow> rows_;
    SheetVerdict verdict_;
};

}  // namespace evaluation
