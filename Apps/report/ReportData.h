// ReportData: what a report on a chart says, before anything is drawn.
#pragma once

#include "Apps/measurements/MeasurementFile.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "SV/core/Color.h"
#include "SV/core/String.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace report {

/// A measure of colour difference: its name for people, and its value for a sample and a standard; a
/// not-a-number where it has none.
struct ReportMeasure {
    std::string name;
    std::function<float(kv::Spectrum const& sample, kv::Spectrum const& standard)> rate;
};

/// What is reported. Indices are those of the file's samples; one that it lacks is left out.
struct ReportOptions {
    std::vector<std::size_t> samples;     // in their order
    std::optional<std::size_t> standard;  // without one there are no differences
    std::optional<ReportMeasure> measure;
    std::optional<float> tolerance;    // without one differences are not judged
    std::optional<std::size_t> paper;  // densities relative to it
    std::vector<std::size_t> curves;   // the spectra of the plot; none for no plot
    std::string language;              // of the texts, for the document: "en", "de"
};

enum class Verdict : int { None, Standard, Within, Beyond };

/// One line of the table. Texts are in the suite's code page.
struct ReportRow {
    sv::String name;
    sv::Color color;  // on a display
    sv::String colorName;
    kv::LABVector lab;
    kv::LChVector lch;
    float density = 0;
    char densityChannel = 'V';  // the ink that the density is of: C, M, Y, or V for the visual filter
    std::optional<float> difference;
    Verdict verdict = Verdict::None;
};

/// What the differences come to, without the standard itself.
struct ReportSummary {
    std::size_t count = 0;
    std::size_t within = 0;  // of those that are judged
    float mean = 0;
    float maximum = 0;
    sv::String whereMaximum;
};

/// With the conditions in force in `CMetry`; a paper among the options is in force afterwards.
[[nodiscard]] std::vector<ReportRow> RowsOf(measurements::MeasurementFile const& file,
                                            ReportOptions const& options);
/// None without any difference.
[[nodiscard]] std::optional<ReportSummary> SummaryOf(std::vector<ReportRow> const& rows);

}  // namespace report
