// MeasurementFile: the measured patches of a CGATS / ISO 28178 text, a CSV file or a data file of
// the suite, on the library's grid.
#pragma once

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
    std::string name;                          // UTF-8, as the file gives it, or its number (1, 2, ...)
    kv::Spectrum spectrum;                     // reflectance as a fraction on the library's grid
    std::optional<std::array<double, 3>> lab;  // the instrument's own L*a*b*, where the file has it
};

struct MeasurementFile {
    std::string path;
    std::string source;           // of a data file: the name of the file it was made from; else empty
    std::string dialect;          // "CGATS.17", "ISO28178", "CSV", ... what the reader took it for
    std::vector<Sample> samples;  // never empty
    StatedConditions stated;
    std::vector<std::string> notes;  // one line each for every choice that was made
};

/// Reads a file; throws ReadError. A missing, unreadable or too large file and a directory are errors too.
/// `path` is UTF-8.
[[nodiscard]] MeasurementFile ReadMeasurementFile(std::string const& path);
/// The same on bytes in memory; `name` stands for the file in messages.
[[nodiscard]] MeasurementFile ParseMeasurements(std::string_view bytes, std::string const& name);

}  // namespace files
