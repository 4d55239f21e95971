#include "Apps/kvcolor/Commands.h"
#include "Apps/kvcolor/Run.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/Unusable.h"
#include "Apps/measurements/DataFile.h"
#include "KVUtils/Source/frame/APPSETTI.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace kvcolor {

namespace {

struct ExportOptions {
    std::string out;
    bool isForced = false;
};

bool Exists(std::string const& path) {
    std::error_code ignored;
    return std::filesystem::exists(std::u8string(path.begin(), path.end()), ignored);
}

void WarnOfNames(measurements::MeasurementFile const& file, Messages& messages) {
    for (measurements::Sample const& sample : file.samples) {
        if (measurements::SurvivesDataFile(sample.name)) continue;
        messages.Warn("sample \"" + sample.name +
                      "\" will be read by another name: a data file keeps no \"^\" and no character outside "
                      "Windows-1252");
    }
}

void RunExport(Session& session, ExportOptions const& options) {
    if (!options.isForced && Exists(options.out)) {
        throw Unusable(options.out + " is there already: --force replaces it");
    }
    auto file = session.Load({});
    std::vector<measurements::Sample> samples;
    for (std::size_t const index : session.Chosen(file)) samples.push_back(std::move(file.samples[index]));
    file.samples = std::move(samples);

    WarnOfNames(file, session.GetMessages());
    kv::AppName::CreateAppName("kvcolor", Version);
    measurements::WriteDataFile(file, options.out);
    std::size_t const count = file.samples.size();
    session.GetMessages().Note(options.out + ": " + std::to_string(count) +
                               (count == 1 ? " sample" : " samples"));
}

}  // namespace

void AddExport(CLI::App& program, Session& session) {
    auto const options = std::make_shared<ExportOptions>();
    CLI::App* const command = program.add_subcommand(
        "export", "Measurements into a data file of the suite, which all commands read");
    session.AddInputOptions(*command);
    command->add_option("OUT", options->out, "The data file to write")->required()->type_name("");
    command->add_flag("--force", options->isForced, "Replace OUT if it is there");
    session.AddQuietOption(*command);
    command->footer("Example:\n  kvcolor export ink.txt ink.dat --only 0,100");
    command->callback([&session, options] { RunExport(session, *options); });
}

}  // namespace kvcolor
