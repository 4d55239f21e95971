// CommandLine: describes commands and their options and parses the arguments. The only user of the parser
// library, whose header takes seconds to compile.
#pragma once

#include "Apps/kvcolor/output/Messages.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kvcolor {

/// The description of an option or argument.
struct Option {
    char const* name;  // "--format", "-q,--quiet", or "FILE" for an argument
    char const* help;
    char const* value = "";  // the placeholder of its value in the help
    bool isRequired = false;
    std::vector<std::string> choices = {};
    char const* needs = nullptr;     // the name of an option that must be given too
    char const* excludes = nullptr;  // the name of an option that must not be given
};

class Command {
  public:
    explicit Command(CLI::App& app) noexcept : app_(app) {}

    /// Adds an option that stores its value in the variable, which must live until the arguments are parsed.
    void Add(Option const& option, std::string& value);
    /// An option that may be repeated.
    void Add(Option const& option, std::vector<std::string>& values);
    /// A number within limits.
    void Add(Option const& option, long& value, long minimum, long maximum);
    /// An option without a value.
    void Add(Option const& option, bool& isSet);
    /// Sets the text after the options in the help, and the function to call if the arguments name the
    /// command.
    void Finish(std::string const& footer, std::function<void()> run);

  private:
    CLI::App& app_;
};

class CommandLine {
  public:
    CommandLine(std::string const& program, std::string const& purpose, std::string const& version);
    CommandLine(CommandLine const&) = delete;
    CommandLine& operator=(CommandLine const&) = delete;
    ~CommandLine();

    [[nodiscard]] Command Add(char const* name, char const* purpose);

    /// Parses the arguments, without the program's name, and runs the command. Prints help and version to
    /// `out`. Returns false after an error message; exceptions of the command pass.
    [[nodiscard]] bool Run(std::vector<std::string> arguments, std::ostream& out, Messages& messages);

  private:
    std::unique_ptr<CLI::App> app_;
};

}  // namespace kvcolor
