#include "Apps/suite/ChartMeasurement.h"

#include <utility>

namespace suite {

namespace {

files::MeasurementFile Describe(ServerClient& server) {
    DeviceIdentity const device = server.Identify();
    files::MeasurementFile file;
    file.path = device.name + ' ' + device.serialNumber;
    file.dialect = std::string(ServerName) + ' ' + device.softwareVersion;
    return file;
}

/// Throws `error` again, with the display's text if the instrument is not ready.
[[noreturn]] void Explain(ServerClient& server, ServerError const& error) {
    std::string display;
    try {
        if (error.Status() == ServerStatus::NotReady) display = ": " + server.Display();
    } catch (ServerError const&) {  // NOLINT(bugprone-empty-catch): report the first error
    }
    throw ServerError(error.what() + display, error.Status());
}

/// Starts the chart and returns how many patches to measure.
long Begin(ServerClient& server, ChartRequest const& request) {
    files::StatedConditions asked;
    asked.measurementMode = request.measurementMode;
    server.Require(asked);
    long const chart = server.BeginChart();
    if (chart < 1) throw ServerError("the chart has no patches");
    if (request.patches > chart) {
        throw ServerError(std::to_string(request.patches) + " patches requested; the chart has " +
                          std::to_string(chart));
    }
    return request.patches == 0 ? chart : request.patches;
}

}  // namespace

void MeasureChart(ServerClient& server, ChartRequest const& request, files::MeasurementFile& file,
                  ChartProgress const& progress) try {
    file = Describe(server);
    long const patches = Begin(server, request);
    server.MeasureWhite();
    file.stated = server.Conditions();
    progress(0, patches);
    for (long done = 1; done <= patches; ++done) {
        MeasuredPatch patch = server.Measure();
        file.samples.push_back({std::move(patch.name), patch.spectrum, std::nullopt});
        progress(done, patches);
    }
} catch (ServerError const& error) {
    Explain(server, error);
}

}  // namespace suite
