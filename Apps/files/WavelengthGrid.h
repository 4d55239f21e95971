// WavelengthGrid: which columns of a file make the library's 36 points.
#pragma once

#include "Apps/files/ReadError.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace files {

/// A column that holds the reflectance at one wavelength.
struct SpectralColumn {
    double nm = 0;
    std::size_t column = 0;
};

/// Wavelengths outside this range, in nm, are none.
inline constexpr double ShortestWavelength = 200;
inline constexpr double LongestWavelength = 2500;

/// For each of the library's points the column that supplies it, and a line that says how the file's own grid
/// was brought there.
struct WavelengthGrid {
    std::array<std::size_t, kv::SpectralPoints> columns{};
    std::array<int, kv::SpectralPoints> wavelengths{};  // of those columns; held ends repeat theirs
    std::string note;
};

/// Columns may stand in any order. Their wavelengths must be steps of 10, 5 or 1 nm without a gap, with whole
/// tens among them, and reach from 400 to 700 nm at least; of 5 and 1 nm every tenth nanometre is taken, what
/// lies outside 380 to 730 nm is cut, and what is missing inside is held at the nearest ten. All else is a
/// ReadError at `place`.
[[nodiscard]] WavelengthGrid MakeGrid(std::vector<SpectralColumn> columns, Place const& place);

}  // namespace files
