// WavelengthGrid: maps the columns of a file to the library's 36 points.
#pragma once

#include "Apps/files/ReadError.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace files {

/// The column of one wavelength.
struct SpectralColumn {
    double nm = 0;
    std::size_t column = 0;
};

/// The range of numbers accepted as wavelengths, in nm.
inline constexpr double ShortestWavelength = 200;
inline constexpr double LongestWavelength = 2500;

/// The source column of each of the library's points, and a line that describes the mapping.
struct WavelengthGrid {
    std::array<std::size_t, kv::SpectralPoints> columns{};
    std::array<int, kv::SpectralPoints> wavelengths{};  // of those columns, in nm; held ends repeat theirs
    std::string note;
    std::string assumption;  // how missing wavelengths are filled in; empty if there are none
};

/// Maps columns in any order. Their wavelengths must have a step of 10, 5 or 1 nm without a gap, include
/// whole tens, and cover 400 to 700 nm. Takes every tenth nanometre, cuts what is outside 380 to 730 nm, and
/// extends a shorter range by its end values. Throws ReadError at `location` otherwise.
[[nodiscard]] WavelengthGrid MakeGrid(std::vector<SpectralColumn> columns, Location const& location);

}  // namespace files
