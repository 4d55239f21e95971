#include "Apps/kvcolor/Run.h"

#include "Apps/files/DataFile.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace kvcolor {

namespace {

void Describe(CLI::App& program, Session& session) {
    constexpr std::size_t widthOfOptions = 34;
    program.get_formatter()->column_width(widthOfOptions);
    program.set_version_flag("--version", std::string("kvcolor ") + Version);
    program.require_subcommand(1);
    program.allow_windows_style_options(false);  // a path may begin with "/" there too
    program.footer("kvcolor COMMAND --help shows a command's options and an example.");
    AddConvert(program, session);
    AddDensity(program, session);
    AddDifference(program, session);
    AddMetamerism(program, session);
    AddStrength(program, session);
    AddExport(program, session);
    AddMeasure(program, session);
    AddChartReport(program, session);
    AddIlluminants(program, session);
}

/// What the parser finds wrong; where it misses a command, the word that stands in its place.
std::string Explain(CLI::App& program, CLI::ParseError const& fault, std::string const& firstArgument) {
    if (auto const chosen = program.get_subcommands(); !chosen.empty()) {
        return fault.what() + std::string(" (see kvcolor ") + chosen.front()->get_name() + " --help)";
    }
    std::vector<std::string> names;
    for (CLI::App const* const command : program.get_subcommands(nullptr))
        names.push_back(command->get_name());
    std::string const commands = List(names, names.size());
    std::string const lack =
        firstArgument.empty() ? "a command is missing" : "no command \"" + firstArgument + '"';
    return lack + ": there are " + commands + " (see kvcolor --help)";
}

}  // namespace

int Run(std::vector<std::string> arguments, Environment const& environment) {
    Session session(environment);
    try {
        CLI::App program(
            "Colour measurement for print: colours, densities, differences, metamerism, ink strength",
            "kvcolor");
        Describe(program, session);
        std::string const first = arguments.empty() ? "" : arguments.front();
        // The parser takes them from the end.
        std::ranges::reverse(arguments);
        try {
            program.parse(std::move(arguments));
        } catch (CLI::Success const& answer) {
            return program.exit(answer, environment.out, environment.err);
        } catch (CLI::ParseError const& fault) {
            session.GetMessages().Error(Explain(program, fault, first));
            return UnusableInput;
        }
        return Success;
    } catch (files::WriteError const& error) {
        session.GetMessages().Error(error.what());
        return OutputFailed;
    } catch (std::exception const& error) {
        session.GetMessages().Error(error.what());
        return UnusableInput;
    }
}

}  // namespace kvcolor
