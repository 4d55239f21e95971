// Session: what all commands share: the options that each of them has, reading a file with its notes and
// warnings, and delivering a report.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/Environment.h"
#include "Apps/kvcolor/StatedCheck.h"
#include "Apps/kvcolor/output/Answer.h"
#include "Apps/kvcolor/output/Messages.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kvcolor {

class Session {
  public:
    explicit Session(Environment const& environment)
        : environment_(environment), messages_(environment.err) {}

    /// Gives a command --format and --quiet.
    void AddOutputOptions(CLI::App& command);
    /// Gives a command its FILE, the choice of samples and the conditions of measurement to expect.
    void AddFileOptions(CLI::App& command);
    /// The same without --format and --quiet, and --quiet alone: for a command that shows no report.
    void AddInputOptions(CLI::App& command);
    void AddQuietOption(CLI::App& command);

    /// Reads FILE, or another file, says its notes and holds what it states against what is asked for; the
    /// conditions of measurement asked for are those of the options. Throws files::ReadError.
    [[nodiscard]] files::MeasurementFile Load(AskedConditions asked);
    [[nodiscard]] files::MeasurementFile Load(std::string const& path, AskedConditions asked);
    /// The samples that --only chooses.
    [[nodiscard]] std::vector<std::size_t> Chosen(files::MeasurementFile const& file) const;
    /// Whether --only was given.
    [[nodiscard]] bool IsChoosing() const noexcept { return !only_.empty(); }

    /// The conditions that a report on this file begins with: the file, and what it states of its
    /// measurement.
    [[nodiscard]] static std::vector<Condition> ConditionsOf(files::MeasurementFile const& file);

    /// The column of sample names, and a row that has its name and swatch in place.
    [[nodiscard]] static Column NameColumn() { return TextColumn("name", "name"); }
    [[nodiscard]] static Row RowOf(files::Sample const& sample) {
        return {{sample.name}, ToRgb(sample.spectrum)};
    }

    /// Writes the report in the form of --format.
    void Deliver(Report const& report) const;

    [[nodiscard]] Messages& GetMessages() noexcept { return messages_; }
    [[nodiscard]] Environment const& GetEnvironment() const noexcept { return environment_; }

  private:
    Environment const& environment_;
    Messages messages_;
    std::string file_;
    std::string format_ = "table";
    std::vector<std::string> only_;
    std::string measurementMode_;
    std::string filter_;
};

}  // namespace kvcolor
