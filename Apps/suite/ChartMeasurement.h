// ChartMeasurement: measures a chart through the measuring server.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/suite/ServerClient.h"

#include <functional>
#include <string>

namespace suite {

struct ChartRequest {
    std::string measurementMode;  // to request, "M0" to "M3"; empty for the instrument's own
    long patches = 0;             // measure the first ones only; 0 for the whole chart
};

/// Called with 0 before the first patch, then after each one.
using ChartProgress = std::function<void(long done, long patches)>;

/// Measures a chart and replaces the contents of `file`. The path is the instrument's name and serial number.
/// Throws ServerError, with the text of the instrument's display if the instrument is not ready; `file` then
/// holds the patches measured so far.
void MeasureChart(ServerClient& server, ChartRequest const& request, files::MeasurementFile& file,
                  ChartProgress const& progress);

}  // namespace suite
