// ColourSheet: the patches of a chart as colours under the conditions of one's choice, and whether each keeps
// the tolerances. What a workbench and a report show of a measurement.
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

/// How far a sample may be from its standard. A limit of 0 is none.
struct Tolerances {
    Measure measure = Measure::Cielab;
    MeasureWeights weights;
    double difference = 2;                         // by the measure, without its sign
    std::array<double, 3> components = {0, 0, 0};  // of dL*, dC*, dH*, without their signs

    /// Whether anything can be out of them.
    [[nodiscard]] bool HasLimits() const noexcept;
};

/// A sample held against its standard.
struct Judgement {
    float difference = 0;             // by the measure; not-a-number where it has no value
    std::array<float, 3> components;  // dL*, dC*, dH*
    bool isWithin = false;            // never with a limit and no value to hold against it
};

[[nodiscard]] Judgement Judge(kv::Spectrum const& sample, kv::Spectrum const& standard,
                              Tolerances const& tolerances) noexcept;

/// What the sheet's colours depend on. Indices are those of samples.
struct SheetConditions {
    kv::IllumClass illuminant{kv::IllumType::D50};
    kv::ObserverClass observer{kv::ObserverType::TwoDegrees};
    kv::DStdClass densityStandard{kv::DStdType::AnsiT};
    std::optional<std::size_t> paper;     // densities are relative to it
    std::optional<std::size_t> standard;  // the others are judged against it
    Tolerances tolerances;
};

/// One patch.
struct SheetRow {
    kv::LABVector lab;
    kv::LChVector lch;
    kv::DensityVector density;           // relative to the paper, if there is one
    int densityFilter;                   // the channel that the patch is judged by, 0 for visual
    sv::Color swatch;                    // on the screen
    kv::FarbNummerType name;             // number of the colour's name in the text group "FarbTexte"
    std::optional<Judgement> judgement;  // none without a standard, and for the standard itself
};

/// What the density filters measure: 'C', 'M', 'Y' the inks, 'V' the visual one.
[[nodiscard]] char InkOfFilter(int filter) noexcept;

/// How many are judged, and how many of these are within the tolerances.
struct SheetVerdict {
    std::size_t judged = 0;
    std::size_t within = 0;
    // Of the differences that have a value, without their signs.
    float mean = 0;
    float largest = 0;
    std::optional<std::size_t> whereLargest;
};

class ColourSheet {
  public:
    /// The conditions that the file states, as far as it does, and those of SheetConditions.
    explicit ColourSheet(files::MeasurementFile file);

    [[nodiscard]] files::MeasurementFile const& File() const noexcept { return file_; }
    [[nodiscard]] SheetConditions const& Conditions() const noexcept { return conditions_; }
    /// One for each sample, in their order.
    [[nodiscard]] std::span<SheetRow const> Rows() const noexcept { return rows_; }
    [[nodiscard]] SheetVerdict const& Verdict() const noexcept { return verdict_; }
    /// On these samples alone.
    [[nodiscard]] SheetVerdict VerdictOn(std::span<std::size_t const> samples) const noexcept;
    /// All samples, by their indices.
    [[nodiscard]] std::vector<std::size_t> AllSamples() const;

    /// Computes all anew, with these in force in the library's context from then on. An index past the last
    /// sample is none.
    void Change(SheetConditions conditions);

  private:
    [[nodiscard]] SheetRow RowOf(std::size_t index) const;

    files::MeasurementFile file_;
    SheetConditions conditions_;
    std::vector<SheetRow> rows_;
    SheetVerdict verdict_;
};

}  // namespace evaluation
