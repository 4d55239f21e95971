#include "Apps/kvcolor/CommandLine.h"

#include "Apps/files/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace kvcolor {

namespace {

template <class Value>
CLI::Option* Describe(CLI::App& app, Option const& option, Value& value) {
    CLI::Option* const added = app.add_option(option.name, value, option.help);
    added->required(option.isRequired)->type_name(option.value);
    if (!option.choices.empty()) added->check(CLI::IsMember(option.choices));
    if (option.needs != nullptr) added->needs(app.get_option(option.needs));
    if (option.excludes != nullptr) added->excludes(app.get_option(option.excludes));
    return added;
}

/// Explains a parse error; without a command, names the commands.
std::string Explain(CLI::App& app, CLI::ParseError const& fault, std::string const& firstArgument) {
    if (auto const chosen = app.get_subcommands(); !chosen.empty()) {
        return fault.what() + std::string(" (see kvcolor ") + chosen.front()->get_name() + " --help)";
    }
    std::vector<std::string> names;
    for (CLI::App const* const command : app.get_subcommands(nullptr)) names.push_back(command->get_name());
    std::string const problem =
        firstArgument.empty() ? "no command given" : "unknown command " + files::Quoted(firstArgument);
    return problem + " (choose from " + files::List(names) + "; see kvcolor --help)";
}

}  // namespace

void Command::Add(Option const& option, std::string& value) { Describe(app_, option, value); }

void Command::Add(Option const& option, std::vector<std::string>& values) {
    CLI::Option* const added = Describe(app_, option, values);
    if (option.name[0] == '-') added->allow_extra_args(false);
}

void Command::Add(Option const& option, long& value, long minimum, long maximum) {
    Describe(app_, option, value)->check(CLI::Range(minimum, maximum));
}

void Command::Add(Option const& option, bool& isSet) { app_.add_flag(option.name, isSet, option.help); }

void Command::Finish(std::string const& footer, std::function<void()> run) {
    app_.footer(footer);
    app_.callback(std::move(run));
}

CommandLine::CommandLine(std::string const& program, std::string const& purpose, std::string const& version)
    : app_(std::make_unique<CLI::App>(purpose, program)) {
    constexpr std::size_t widthOfOptions = 34;
    app_->get_formatter()->column_width(widthOfOptions);
    app_->set_version_flag("--version", program + ' ' + version);
    app_->require_subcommand(1);
    app_->allow_windows_style_options(false);  // there, too, a path may begin with "/"
    app_->footer(program + " COMMAND --help shows the options of a command and an example.");
}

CommandLine::~CommandLine() = default;

Command CommandLine::Add(char const* name, char const* purpose) {
    return Command(*app_->add_subcommand(name, purpose));
}

bool CommandLine::Run(std::vector<std::string> arguments, std::ostream& out, Messages& messages) {
    std::string const first = arguments.empty() ? "" : arguments.front();
    // The parser takes them from the end.
    std::ranges::reverse(arguments);
    try {
        app_->parse(std::move(arguments));
        return true;
    } catch (CLI::Success const& answer) {
        app_->exit(answer, out, out);
        return true;
    } catch (CLI::ParseError const& fault) {
        messages.Error(Explain(*app_, fault, first));
        return false;
    }
}

}  // namespace kvcolor
