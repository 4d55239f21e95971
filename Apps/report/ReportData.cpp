#include "Apps/report/ReportData.h"

#include "Apps/measurements/SuiteText.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/metrics/ColorConverter.h"
#include "KVUtils/Source/metrics/DensityVector.h"

#include <cmath>
#include <string_view>

namespace report {

namespace {

using measurements::MeasurementFile;
using measurements::Sample;

Sample const* SampleAt(MeasurementFile const& file, std::optional<std::size_t> index) {
    return index && *index < file.samples.size() ? &file.samples[*index] : nullptr;
}

/// The density filters by the inks that they measure.
constexpr std::string_view InkOfFilter = "VCMY";

ReportRow RowOf(Sample const& sample, bool isRelative) {
    kv::Spectrum const& spectrum = sample.spectrum;
    kv::DensityVector const densities(spectrum, isRelative);
    int const channel = densities.AutoFilter();
    ReportRow row;
    row.name = measurements::ToSuite(sample.name);
    row.color = kv::ColorConverter::SpectrumToColor(spectrum);
    row.colorName = kv::ColorConverter::Farbzuordnung(spectrum);
    row.lab = kv::LABVector(spectrum);
    row.lch = kv::LChVector(spectrum);
    row.density = densities[channel];
    row.densityChannel = InkOfFilter[static_cast<std::size_t>(channel)];
    return row;
}

Verdict Judge(float difference, std::optional<float> tolerance) {
    if (!tolerance) return Verdict::None;
    return difference <= *tolerance ? Verdict::Within : Verdict::Beyond;
}

}  // namespace

std::vector<ReportRow> RowsOf(MeasurementFile const& file, ReportOptions const& options) {
    Sample const* const paper = SampleAt(file, options.paper);
    Sample const* const standard = SampleAt(file, options.standard);
    kv::CMetry::EnterWhite(paper != nullptr ? paper->spectrum : kv::Spectrum());
    std::vector<ReportRow> rows;
    for (std::size_t const index : options.samples) {
        Sample const* const sample = SampleAt(file, index);
        if (sample == nullptr) continue;
        ReportRow& row = rows.emplace_back(RowOf(*sample, paper != nullptr));
        if (sample == standard) {
            row.verdict = Verdict::Standard;
        } else if (standard != nullptr && options.measure) {
            float const difference = options.measure->rate(sample->spectrum, standard->spectrum);
            if (std::isnan(difference)) continue;
            row.difference = difference;
            row.verdict = Judge(difference, options.tolerance);
        }
    }
    return rows;
}

std::optional<ReportSummary> SummaryOf(std::vector<ReportRow> const& rows) {
    ReportSummary summary;
    double sum = 0;
    for (ReportRow const& row : rows) {
        if (!row.difference) continue;
        if (summary.count == 0 || *row.difference > summary.maximum) {
            summary.maximum = *row.difference;
            summary.whereMaximum = row.name;
        }
        ++summary.count;
        summary.within += row.verdict == Verdict::Within ? 1U : 0U;
        sum += *row.difference;
    }
    if (summary.count == 0) return std::nullopt;
    summary.mean = static_cast<float>(sum / static_cast<double>(summary.count));
    return summary;
}

}  // namespace report
