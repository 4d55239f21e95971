// ChartMeasurement: a chart, patch by patch through the measuring server.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/suite/ServerClient.h"

#include <functional>
#include <string>

namespace suite {

struct ChartRequest {
    std::string measurementMode;  // "M0" to "M3" to ask for; empty to take what the instrument has
    long patches = 0;             // the first ones; 0 for the whole chart
};

/// Told how many of how many patches are measured: once with 0, then after each patch.
using ChartProgress = std::function<void(long done, long patches)>;

/// Measures into `file`, in place of what it held: the instrument's name stands where another measurement has
/// that of its file. Throws ServerError, which says what the instrument's display tells when it is not ready;
/// what was measured until then is in `file`.
void MeasureChart(ServerClient& server, ChartRequest const& request, files::MeasurementFile& file,
                  ChartProgress const& progress);

}  // namespace suite
