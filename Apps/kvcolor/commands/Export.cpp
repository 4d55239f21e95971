#include "Apps/evaluation/InputError.h"
#include "Apps/kvcolor/ExportFile.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Platform/Utf8Path.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace kvcolor {

namespace {

void RunExport(Session& session, std::string const& out) {
    session.CheckOutput(out);
    std::error_code ignored;
    if (std::filesystem::equivalent(platform::PathOf(session.FileName()), platform::PathOf(out), ignored)) {
        throw evaluation::InputError(out + " is FILE itself (choose another OUT)");
    }
    auto file = session.Load();
    std::vector<files::Sample> samples;
    for (std::size_t const index : session.Chosen(file)) samples.push_back(std::move(file.samples[index]));
    file.samples = std::move(samples);

    WriteExport(file, out, session.GetMessages());
}

}  // namespace

void AddExport(CommandLine& program, Session& session) {
    auto const out = std::make_shared<std::string>();
    Command command = program.Add("export", "Write the samples to a data file of the suite");
    session.AddInputOptions(command);
    command.Add({.name = "OUT", .help = "The data file to write", .isRequired = true}, *out);
    session.AddForce(command, "Overwrite OUT if it exists");
    session.AddVerbosity(command);
    command.Finish("Example:\n  kvcolor export ink.txt ink.dat --only 0,100",
                   [&session, out] { RunExport(session, *out); });
}

}  // namespace kvcolor
