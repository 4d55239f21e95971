// CSV with a column a wavelength and a row a sample, separated by commas, semicolons or tabs.
#pragma once

#include "Apps/measurements/MeasurementFile.h"

#include <string_view>

namespace measurements {

/// Reads a text from CheckedText into `file`, whose path is set. Throws ReadError, also when the first line
/// that is no comment (#) has no wavelengths.
void ReadCsv(std::string_view text, MeasurementFile& file);

}  // namespace measurements
