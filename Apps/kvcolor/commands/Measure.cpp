#include "Apps/kvcolor/Coordinates.h"
#include "Apps/kvcolor/ExportFile.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "Apps/suite/ChartMeasurement.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/Version.h"
#include "Platform/Process.h"

#include <memory>
#include <optional>

namespace kvcolor {

namespace {

using suite::ServerClient;

struct MeasureOptions {
    std::string out;
    long patches = 0;  // 0 for the whole chart
    long timeout = 10;
};

/// Measures into `file`, which contains the patches measured so far if this throws.
void Measure(MeasureOptions const& options, Session& session, files::MeasurementFile& file) {
    Environment const& environment = session.GetEnvironment();
    ServerClient server(
        {.timeout = std::chrono::seconds(options.timeout), .isInterrupted = environment.isInterrupted});
    std::optional<Progress> progress;
    suite::MeasureChart(server, {session.MeasurementMode(), options.patches}, file,
                        [&](long done, long patches) {
                            if (done == 0) {
                                progress.emplace(environment, "measuring", static_cast<std::size_t>(patches));
                            } else {
                                progress->Step();
                            }
                        });
}

void Deliver(Session& session, MeasureOptions const& options, files::MeasurementFile const& file) {
    if (!options.out.empty()) return WriteExport(file, options.out, session.GetMessages());
    session.ApplyConditions();
    Table table{"samples", ColourColumns(), {}};
    for (files::Sample const& sample : file.samples) table.rows.push_back(ColourRow(sample));
    auto conditions = Session::ConditionsOf(file);
    conditions.front().key = "instrument";
    session.AppendConditions(conditions);
    session.Deliver("measure", std::move(conditions), std::move(table));
}

void RunMeasure(Session& session, MeasureOptions const& options) {
    if (!options.out.empty()) session.CheckOutput(options.out);
    // Each process has its own name: two that start within a second would share the instance name.
    std::string const name = "kvcolor-" + std::to_string(platform::ProcessNumber());
    suite::SuiteServices const services(name, kv::Version);
    files::MeasurementFile file;
    try {
        Measure(options, session, file);
    } catch (std::exception const&) {
        // Keeps the patches measured so far.
        if (!file.samples.empty()) Deliver(session, options, file);
        throw;
    }
    session.GetMessages().Write(
        evaluation::CheckStated(file, {{}, std::nullopt, session.MeasurementMode(), ""}));
    Deliver(session, options, file);
}

}  // namespace

void AddMeasure(CommandLine& program, Session& session) {
    auto const options = std::make_shared<MeasureOptions>();
    Command command =
        program.Add("measure", "Measure a chart patch by patch through the measuring server HQMSERV");
    command.Add({.name = "OUT", .help = "The data file to write; without it the colours are shown"},
                options->out);
    session.AddForce(command, "Overwrite OUT if it exists");
    constexpr long maxPatches = 1'000'000;
    command.Add({.name = "--patches", .help = "Measure only the first N patches", .value = "N"},
                options->patches, 1, maxPatches);
    session.AddConditions(command);
    session.AddMeasurementMode(command, "Require this measurement condition: M0 to M3");
    constexpr long maxTimeout = 3600;
    command.Add({.name = "--timeout", .help = "Seconds to wait for each answer, 10 by default", .value = "S"},
                options->timeout, 1, maxTimeout);
    session.AddOutputOptions(command);
    command.Finish(
        "Starts the server if it is not running. The suite's ini file names its program and the measurements\n"
        "that it replays (HQMSERV --help).\n\n"
        "Example:\n  HQMSERV chart.csv &\n  kvcolor measure chart.dat",
        [&session, options] { RunMeasure(session, *options); });
}

}  // namespace kvcolor
