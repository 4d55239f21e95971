// DeskMeasuring: measures a chart through the measuring server, with a window that shows the progress.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "SV/ui/Window.h"

namespace colourdesk {

struct DeskMeasurement {
    files::MeasurementFile file;  // the patches measured before a fault, too
    sv::String fault;             // why the measurement stopped; empty when the chart is complete
};

/// Returns when the chart is measured, the user cancels, or the server fails. Runs the event loop.
[[nodiscard]] DeskMeasurement MeasureChart(sv::Window& parent);

}  // namespace colourdesk
