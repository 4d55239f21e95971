// Reads CSV with one column per wavelength and one row per sample, separated by commas, semicolons or tabs.
#pragma once

#include "Apps/files/MeasurementFile.h"

#include <string_view>

namespace files {

/// Reads a text from CheckedText into `file`, whose path is set. Throws ReadError, also if the first line
/// that is not a comment (#) has no wavelengths.
void ReadCsv(std::string_view text, ReadOptions const& options, MeasurementFile& file);

}  // namespace files
