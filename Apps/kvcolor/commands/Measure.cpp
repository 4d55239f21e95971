#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/Coordinates.h"
#include "Apps/kvcolor/ExportFile.h"
#include "Apps/kvcolor/Run.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "Apps/suite/ChartMeasurement.h"
#include "Apps/suite/SuiteServices.h"
#include "Platform/Process.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace kvcolor {

namespace {

using suite::ServerClient;

struct MeasureOptions {
    std::string out;
    bool isForced = false;
    std::string illuminant = "D50";
    std::string observer = "2";
    std::string measurementMode;
    long patches = 0;  // 0 for the whole chart
    int patience = 10;
};

std::string ModeOf(MeasureOptions const& options) {
    return options.measurementMode.empty() ? "" : ParseMeasurementMode(options.measurementMode);
}

/// Measures into `file`, which holds what was measured when this throws.
void Measure(MeasureOptions const& options, Environment const& environment, files::MeasurementFile& file) {
    ServerClient server(
        {.patience = std::chrono::seconds(options.patience), .isInterrupted = environment.isInterrupted});
    std::optional<Progress> progress;
    suite::MeasureChart(server, {ModeOf(options), options.patches}, file, [&](long done, long patches) {
        if (done == 0) {
            progress.emplace(environment, "measuring", static_cast<std::size_t>(patches));
        } else {
            progress->Step();
        }
    });
}

void Deliver(Session& session, MeasureOptions const& options, files::MeasurementFile const& file) {
    if (!options.out.empty()) return WriteExport(file, options.out, session.GetMessages());
    kv::IllumClass const illuminant = ParseIlluminant(options.illuminant);
    kv::ObserverClass const observer = ParseObserver(options.observer);
    PutInForce(illuminant, observer, kv::DStdClass(kv::DStdType::AnsiT));
    Table table{"samples", ColourColumns(), {}};
    for (files::Sample const& sample : file.samples) table.rows.push_back(ColourRow(sample));
    auto conditions = Session::ConditionsOf(file);
    conditions.front().key = "instrument";
    conditions.push_back({"illuminant", NameOf(illuminant)});
    conditions.push_back({"observer", NameOf(observer)});
    session.Deliver({"measure", conditions, {table}});
}

void RunMeasure(Session& session, MeasureOptions const& options) {
    if (!options.out.empty() && !options.isForced) CheckIsNew(options.out);
    // A name of its own for each process: two that start within a second would share the instance name.
    std::string const name = "kvcolor-" + std::to_string(platform::ProcessNumber());
    suite::SuiteServices const services(name, Version);
    files::MeasurementFile file;
    try {
        Measure(options, session.GetEnvironment(), file);
    } catch (std::exception const&) {
        // What was measured is not lost.
        if (!file.samples.empty()) Deliver(session, options, file);
        throw;
    }
    CheckStated(file, AskedConditions{{}, std::nullopt, ModeOf(options), ""}, session.GetMessages());
    Deliver(session, options, file);
}

}  // namespace

void AddMeasure(CLI::App& program, Session& session) {
    auto const options = std::make_shared<MeasureOptions>();
    CLI::App* const command =
        program.add_subcommand("measure", "A chart, patch by patch through the measuring server HQMSERV");
    command->add_option("OUT", options->out, "A data file to write; without it the colours are shown")
        ->type_name("");
    command->add_flag("--force", options->isForced, "Replace OUT if it is there");
    command->add_option("--patches", options->patches, "Measure the first N patches; all without it")
        ->check(CLI::PositiveNumber)
        ->type_name("N");
    command->add_option("--illuminant", options->illuminant, "D50 (default); kvcolor illuminants lists all")
        ->type_name("NAME");
    command->add_option("--observer", options->observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    command
        ->add_option("--condition", options->measurementMode, "Ask for this measurement condition: M0 to M3")
        ->type_name("M");
    command->add_option("--patience", options->patience, "Seconds to wait for an answer (10)")
        ->check(CLI::Range(1, 3600))
        ->type_name("S");
    session.AddOutputOptions(*command);
    command->footer(
        "The server is started when it does not run. Its program and the measurements that it plays are "
        "named in the suite's ini file (HQMSERV --help).\n"
        "Example:\n  HQMSERV chart.csv &\n  kvcolor measure chart.dat");
    command->callback([&session, options] { RunMeasure(session, *options); });
}

}  // namespace kvcolor
