#include "Apps/kvcolor/ExportFile.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <utility>

namespace kvcolor {

namespace {

struct ExportOptions {
    std::string out;
    bool isForced = false;
};

void RunExport(Session& session, ExportOptions const& options) {
    if (!options.isForced) CheckIsNew(options.out);
    auto file = session.Load({});
    std::vector<files::Sample> samples;
    for (std::size_t const index : session.Chosen(file)) samples.push_back(std::move(file.samples[index]));
    file.samples = std::move(samples);

    WriteExport(file, options.out, session.GetMessages());
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
