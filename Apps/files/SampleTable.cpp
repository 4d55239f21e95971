#include "Apps/files/SampleTable.h"

#include "Apps/files/Quotes.h"
#include "Apps/files/Text.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"

#include <algorithm>
#include <utility>

namespace files {

namespace {

bool AreDistinct(std::vector<std::string> const& names) {
    std::vector<std::string_view> sorted(names.begin(), names.end());
    std::ranges::sort(sorted);
    return !sorted.empty() && !sorted.front().empty() && std::ranges::adjacent_find(sorted) == sorted.end();
}

/// Refuses samples most of which are lighter than any surface: their scale is wrong.
void CheckLightness(MeasurementFile const& file, double divisor) {
    constexpr float HighestY = 110;
    auto const tooLight =
        static_cast<std::size_t>(std::ranges::count_if(file.samples, [](Sample const& sample) {
            return kv::XYZVector(kv::CMetry::RGBFilter, sample.spectrum)[1] > HighestY;
        }));
    if (2 * tooLight <= file.samples.size()) return;
    Fail({file.path},
         "Y above 110 for " + std::to_string(tooLight) + " of " + Counted(file.samples.size(), "sample"),
         divisor == 1 ? "reflectance as fractions (use --scale percent, or --scale fraction if this is meant)"
                      : "reflectance as percent (use --scale percent if this is meant)");
}

}  // namespace

SampleTable::SampleTable(std::vector<std::string> names, Dialect dialect, Location const& head)
    : names_(std::move(names)), columns_(FindColumns(names_, dialect, head)) {
    if (names_.size() > MaxColumns) {
        Fail(head, std::to_string(names_.size()) + " columns", "at most " + std::to_string(MaxColumns));
    }
    for (SpectralPair const& pair : columns_.pairs) valueColumns_.push_back(pair.value);
    for (SpectralColumn const& column : columns_.spectral) valueColumns_.push_back(column.column);
    if (columns_.pairs.empty()) grid_ = MakeGrid(columns_.spectral, head);
}

std::string SampleTable::ColumnName(std::size_t column) const {
    return ColumnTitle{column, names_[column]}.Text();
}

double SampleTable::Number(std::span<std::string_view const> cells, std::size_t column,
                           Location const& location) {
    return numbers_.Read(cells[column], location, {column, names_[column]});
}

void SampleTable::CheckWavelengths(std::span<std::string_view const> cells, Location const& location) {
    for (std::size_t k = 0; k < columns_.pairs.size(); ++k) {
        SpectralPair const& pair = columns_.pairs[k];
        double const nm = Number(cells, pair.nm, location);
        if (nm < ShortestWavelength || nm > LongestWavelength) {
            Fail(location, ToText(nm) + " in " + ColumnName(pair.nm), "a wavelength in nm");
        }
        if (!grid_) {
            rowWavelengths_.push_back({nm, pair.value});
        } else if (nm != rowWavelengths_[k].nm) {
            Fail(location, ToText(nm) + " nm in " + ColumnName(pair.nm),
                 ToText(rowWavelengths_[k].nm) + " nm as in the first row");
        }
    }
    if (!grid_) grid_ = MakeGrid(rowWavelengths_, location);
}

void SampleTable::AddLab(std::span<std::string_view const> cells, Location const& location) {
    std::array<std::size_t, 3> const& columns = *columns_.lab;
    bool const isEmpty =
        std::ranges::all_of(columns, [&](auto c) { return WithoutQuotes(cells[c]).empty(); });
    if (isEmpty) return;
    // Far outside all colours.
    constexpr double Furthest = 1000;
    std::array<double, 3> lab{};
    for (std::size_t k = 0; k < lab.size(); ++k) {
        lab[k] = Number(cells, columns[k], location);
        if (lab[k] < -Furthest || lab[k] > Furthest) {
            Fail(location, ToText(lab[k]) + " in " + ColumnName(columns[k]), "a value of L*a*b*");
        }
    }
    labs_.back() = lab;
}

void SampleTable::AddRow(std::span<std::string_view const> cells, Location const& location) {
    if (Rows() == MaxSamples) {
        Fail(location, "more than " + std::to_string(MaxSamples) + " samples", "at most that");
    }
    if (!columns_.pairs.empty()) CheckWavelengths(cells, location);
    spectra_.emplace_back().line = location.line;
    std::vector<double>& row = rowValues_;
    row.resize(Width());
    // Unused columns must hold numbers too: otherwise the row is shifted or damaged.
    for (std::size_t const column : valueColumns_) row[column] = Number(cells, column, location);
    for (std::size_t point = 0; point < grid_->columns.size(); ++point) {
        spectra_.back().values[point] = row[grid_->columns[point]];
    }
    labs_.emplace_back();
    if (columns_.lab) AddLab(cells, location);
    if (columns_.name) sampleNames_.push_back(ToUtf8(Unquoted(cells[*columns_.name])));
    if (columns_.id) sampleIds_.push_back(ToUtf8(Unquoted(cells[*columns_.id])));
}

void SampleTable::NameSamples(MeasurementFile& file) {
    bool const takesId =
        columns_.id && !AreDistinct(sampleNames_) && (!columns_.name || AreDistinct(sampleIds_));
    auto const column = takesId ? columns_.id : columns_.name;
    if (!column) {
        file.notes.emplace_back("samples numbered, as no column names them");
    } else {
        std::vector<std::string>& chosen = takesId ? sampleIds_ : sampleNames_;
        bool const isDistinct = AreDistinct(chosen);
        file.notes.push_back("sample names from " + ColumnName(*column) +
                             (isDistinct ? "" : ", not all different"));
        for (std::size_t k = 0; k < chosen.size(); ++k) file.samples[k].name = std::move(chosen[k]);
    }
    std::size_t number = 0;
    for (Sample& sample : file.samples) {
        ++number;
        if (sample.name.empty()) sample.name = std::to_string(number);
    }
}

void SampleTable::Finish(MeasurementFile& file, std::optional<StatedScale> const& stated,
                         std::optional<Scale> forced) {
    file.notes.push_back(grid_->note);
    if (!grid_->assumption.empty()) file.assumptions.push_back(grid_->assumption);
    double const divisor =
        FindDivisor(spectra_, *grid_, columns_.scale ? columns_.scale : stated, forced, file);
    if (numbers_.HasCommas()) file.notes.emplace_back("numbers with decimal commas");
    for (std::size_t k = 0; k < spectra_.size(); ++k) {
        Sample& sample = file.samples.emplace_back();
        sample.lab = labs_[k];
        int point = 0;
        for (double const value : spectra_[k].values) {
            sample.spectrum[point++] = static_cast<float>(value / divisor);
        }
    }
    if (!forced) CheckLightness(file, divisor);
    NameSamples(file);
}

}  // namespace files
