// Columns: finds out what each column of a measurement table holds by its name.
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

/// A scale stated by a file, and the word that states it.
struct StatedScale {
    Scale scale;
    std::string word;
};

/// A wavelength column followed by its value column; every row repeats the wavelength.
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
    std::optional<StatedScale> scale;               // if the names state it
};

/// The wavelength in nm in a column name ("SPECTRAL_NM380", "nm380", "380 nm") and the scale, if any.
struct SpectralName {
    std::optional<double> nm;
    std::optional<Scale> scale;
};
/// Parses a column name; returns nothing if it is not spectral. "SPECTRAL_NM", "SPECTRAL_DEC" and
/// "SPECTRAL_PCT" are spectral without a wavelength.
[[nodiscard]] std::optional<SpectralName> ToSpectralName(std::string_view name);

/// Returns whether any name is spectral.
[[nodiscard]] bool HasSpectralNames(std::vector<std::string> const& names);

/// Assigns the columns. A CSV header may use informal names for samples and Lab. Throws ReadError if there is
/// no spectrum or it is given in two ways.
[[nodiscard]] Columns FindColumns(std::vector<std::string> const& names, Dialect dialect,
                                  Location const& location);

}  // namespace files
