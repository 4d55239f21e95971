// Fraction or percent: which of the two a file's reflectances are, and whether they can be reflectances at
// all.
#pragma once

#include "Apps/files/Columns.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace files {

/// One row's reflectances on the library's grid, as the file writes them.
struct RawSpectrum {
    std::array<double, kv::SpectralPoints> values{};
    std::size_t line = 0;
};

/// Noise of dark patches may be this far below 0, as a fraction.
inline constexpr double LowestReflectance = -0.05;
/// Fluorescent papers reach 1.3; above this the choice between fraction and percent was wrong, or the file
/// is.
inline constexpr double HighestReflectance = 2.0;

/// What the values have to be divided by to be fractions: 1 or 100. What the file states decides, else
/// whether values above 2 occur. Notes get the choice and its reason, and what is unusual in the values.
/// Throws ReadError when a value lies outside the limits above, or when too few values are above 2 to tell
/// percent from a fault.
[[nodiscard]] double FindDivisor(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid,
                                 std::optional<StatedScale> const& stated, std::string_view file,
                                 std::vector<std::string>& notes);

}  // namespace files
