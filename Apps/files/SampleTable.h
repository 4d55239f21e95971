// SampleTable: rows of cells under a head of column names, turned into samples. What CGATS and CSV share.
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

/// More columns than any instrument has points, and more rows than any chart has patches: what a file may ask
/// for.
inline constexpr std::size_t MaxColumns = 10'000;
inline constexpr std::size_t MaxSamples = 500'000;

class SampleTable {
  public:
    /// `head` is where the names stand. Throws ReadError when they hold no usable spectrum.
    SampleTable(std::vector<std::string> names, Dialect dialect, Place const& head);

    /// The number of cells in a row.
    [[nodiscard]] std::size_t Width() const noexcept { return names_.size(); }
    [[nodiscard]] std::size_t Rows() const noexcept { return spectra_.size(); }

    /// Takes a row of `Width()` cells, which may be in quotes.
    void AddRow(std::span<std::string_view const> cells, Place const& place);

    /// Moves the samples and the notes on their making into `file`. There must be a row. A scale stated
    /// outside the column names comes in `stated`.
    void Finish(MeasurementFile& file, std::optional<StatedScale> const& stated);

  private:
    [[nodiscard]] double Number(std::span<std::string_view const> cells, std::size_t column,
                                Place const& place);
    [[nodiscard]] std::string ColumnName(std::size_t column) const;
    void CheckWavelengths(std::span<std::string_view const> cells, Place const& place);
    void AddLab(std::span<std::string_view const> cells, Place const& place);
    void NameSamples(MeasurementFile& file);

    std::vector<std::string> names_;
    Columns columns_;
    std::optional<WavelengthGrid> grid_;  // with wavelengths in the rows, known from the first one on
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
