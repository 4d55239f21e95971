// MeasurementFile: the measured patches of a CGATS, ISO 28178, CSV or data file of the suite, on the
// library's grid.
#pragma once

#include "Apps/files/Columns.h"
#include "Apps/files/ReadError.h"
#include "Apps/files/StatedConditions.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// One measured patch.
struct Sample {
    std::string name;                          // UTF-8, from the file, or else its number (1, 2, ...)
    kv::Spectrum spectrum;                     // reflectance as a fraction on the library's grid
    std::optional<std::array<double, 3>> lab;  // the instrument's own L*a*b*, if the file has it
};

/// How a file is read.
struct ReadOptions {
    std::optional<Scale> scale;  // overrides what the file states or its values suggest
    std::size_t table = 0;       // the number of the table, from 1; 0 is the first with spectra
};

struct MeasurementFile {
    std::string path;
    std::string source;           // of a data file: the name of the file it was made from
    std::string dialect;          // the format: "CGATS.17", "ISO28178", "CSV", ...
    std::vector<Sample> samples;  // never empty
    StatedConditions stated;
    std::vector<std::string> warnings;     // possible mistakes, one line each
    std::vector<std::string> assumptions;  // what the file leaves open, a few words each
    std::vector<std::string> notes;        // one line for each choice the reader made
};

/// Reads a file; `path` is UTF-8. Throws ReadError, also for a missing, unreadable or too large file and for
/// a directory.
[[nodiscard]] MeasurementFile ReadMeasurementFile(std::string const& path, ReadOptions const& options = {});
/// Parses bytes in memory; messages call the file `name`. Throws ReadError.
[[nodiscard]] MeasurementFile ParseMeasurements(std::string_view bytes, std::string const& name,
                                                ReadOptions const& options = {});

}  // namespace files
