// Coordinates: a sample's colour in every space, as a row of a table.
#pragma once

#include "Apps/kvcolor/Report.h"
#include "Apps/measurements/MeasurementFile.h"

#include <vector>

namespace kvcolor {

/// Name, XYZ, xyY, Lab and LCh.
[[nodiscard]] std::vector<Column> ColourColumns();
/// The cells of these columns under the illuminant and observer in force.
[[nodiscard]] Row ColourRow(measurements::Sample const& sample);

}  // namespace kvcolor
