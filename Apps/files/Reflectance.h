// Reflectance: decides whether the values of a file are fractions or percent and whether they are plausible.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/files/WavelengthGrid.h"
#include "KVUtils/Source/colorimetry/SpectralTable.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace files {

/// The reflectances of one row on the library's grid, in the scale of the file.
struct RawSpectrum {
    std::array<double, kv::SpectralPoints> values{};
    std::size_t line = 0;
};

/// The lowest fraction accepted: noise of dark patches falls below 0.
inline constexpr double LowestReflectance = -0.05;
/// The highest fraction accepted. Fluorescent papers reach 1.3; above 2 the scale or the file is wrong.
inline constexpr double HighestReflectance = 2.0;

/// Returns the divisor, 1 or 100, that turns the values into fractions: as forced, else as the file states,
/// otherwise 100 if values exceed 2. Adds the choice to the notes of the file, a doubtful one to its
/// warnings, and unusual values to its assumptions. Throws ReadError if a value is outside the limits above
/// or too few values exceed 2 to tell percent from an error.
[[nodiscard]] double FindDivisor(std::span<RawSpectrum const> spectra, WavelengthGrid const& grid,
                                 std::optional<StatedScale> const& stated, std::optional<Scale> forced,
                                 MeasurementFile& file);

}  // namespace files
