// Coordinates: the colour of a sample in every space, as a row of a table.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Answer.h"

#include <vector>

namespace kvcolor {

/// Name, XYZ, xyY, Lab and LCh.
[[nodiscard]] std::vector<Column> ColourColumns();
/// Returns the cells of these columns, with no hue if C* is 0.00, under the illuminant and observer in force.
[[nodiscard]] Row ColourRow(files::Sample const& sample);

}  // namespace kvcolor
