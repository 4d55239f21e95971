// CSV with a column a wavelength and a row a sample, separated by commas, semicolons or tabs.
#pragma once

#include "Apps/files/MeasurementFile.h"

#include <string_view>

namespace files {

/// Reads a text from CheckedText into `file`, whose path is set. Throws ReadError, also when the first line
/// that is no comment (#) has no wavelengths.
void ReadCsv(std::string_view text, MeasurementFile& file);

}  // namespace files
