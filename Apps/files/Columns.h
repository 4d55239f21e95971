// What the columns of a measurement table hold, told by the names in its head.
#pragma once

#include "Apps/files/WavelengthGrid.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace files {

enum class Scale : int { Fraction, Percent };

/// A scale that a file states, and the word that states it.
struct StatedScale {
    Scale scale;
    std::string word;
};

/// Wavelength and value side by side, the wavelength being stated in every row.
struct SpectralPair {
    std::size_t nm = 0;
    std::size_t value = 0;
};

enum class Dialect : int { Cgats, Csv };

struct Columns {
    std::optional<std::size_t> name;                // SAMPLE_NAME
    std::optional<std::size_t> id;                  // SampleID
    std::optional<std::array<std::size_t, 3>> lab;  // L*, a*, b*
    std::vector<SpectralColumn> spectral;           // either these ...
    std::vector<SpectralPair> pairs;                // ... or these
    std::optional<StatedScale> scale;               // where the names state it
};

/// A wavelength in a column's name ("SPECTRAL_NM380", "nm380", "380 nm"), and the scale if the name has one.
struct SpectralName {
    std::optional<double> nm;
    std::optional<Scale> scale;
};
/// Nothing when the name is no spectral one. "SPECTRAL_NM", "SPECTRAL_DEC" and "SPECTRAL_PCT" have no
/// wavelength.
[[nodiscard]] std::optional<SpectralName> ToSpectralName(std::string_view name);

/// Sorts out the names. A CSV head may call its samples and their Lab less formally than CGATS. Throws
/// ReadError when it holds no spectrum, or one in two ways.
[[nodiscard]] Columns FindColumns(std::vector<std::string> const& names, Dialect dialect, Place const& place);

}  // namespace files
