// SampleTable: turns rows of cells under a header of column names into samples, for CGATS and CSV.
#pragma once

#include "Apps/files/Columns.h"
#include "Apps/files/MeasurementFile.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Reflectance.h"
#include "Apps/files/WavelengthGrid.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// Limits of a table: more columns than an instrument has points, more rows than a chart has patches.
inline constexpr std::size_t MaxColumns = 10'000;
inline constexpr std::size_t MaxSamples = 500'000;

class SampleTable {
  public:
    /// `head` is the location of the names. Throws ReadError if they contain no usable spectrum.
    SampleTable(std::vector<std::string> names, Dialect dialect, Location const& head);

    /// Returns the number of cells in a row.
    [[nodiscard]] std::size_t Width() const noexcept { return names_.size(); }
    [[nodiscard]] std::size_t Rows() const noexcept { return spectra_.size(); }

    /// Adds a row of `Width()` cells, which may be quoted. Throws ReadError.
    void AddRow(std::span<std::string_view const> cells, Location const& location);

    /// Moves the samples and notes into `file`. There must be a row. `stated` is a scale that the file states
    /// outside the column names; `forced` overrides it. Throws ReadError, also if most samples are lighter
    /// than any surface.
    void Finish(MeasurementFile& file, std::optional<StatedScale> const& stated, std::optional<Scale> forced);

  private:
    [[nodiscard]] double Number(std::span<std::string_view const> cells, std::size_t column,
                                Location const& location);
    [[nodiscard]] std::string ColumnName(std::size_t column) const;
    void CheckWavelengths(std::span<std::string_view const> cells, Location const& location);
    void AddLab(std::span<std::string_view const> cells, Location const& location);
    void NameSamples(MeasurementFile& file);

    std::vector<std::string> names_;
    Columns columns_;
    std::optional<WavelengthGrid> grid_;  // if the rows state the wavelengths, set by the first
    std::vector<SpectralColumn> rowWavelengths_;
    std::vector<std::size_t> valueColumns_;
    std::vector<double> rowValues_;  // reused from row to row
    NumberReader numbers_;
    std::vector<RawSpectrum> spectra_;
    std::vector<std::optional<std::array<double, 3>>> labs_;
    std::vector<std::string> sampleNames_;
    std::vector<std::string> sampleIds_;
};

}  // namespace files
