// Session: what the commands share: their common options, reading files with notes and warnings, and writing
// the answer.
#pragma once

#include "Apps/evaluation/DifferenceFormula.h"
#include "Apps/evaluation/StatedCheck.h"
#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/CommandLine.h"
#include "Apps/kvcolor/Environment.h"
#include "Apps/kvcolor/output/Answer.h"
#include "Apps/kvcolor/output/Messages.h"

#include <optional>
#include <string>
#include <vector>

namespace kvcolor {

class Session {
  public:
    explicit Session(Environment const& environment)
        : environment_(environment), messages_(environment.err) {}

    /// Adds --format, --quiet and --verbose.
    void AddOutputOptions(Command& command);
    /// Adds --quiet and --verbose.
    void AddVerbosity(Command& command);
    /// Adds FILE, how to read it, the choice of samples and the expected conditions of measurement.
    void AddInputOptions(Command& command);
    /// Adds both.
    void AddFileOptions(Command& command);
    /// Adds --illuminant and --observer.
    void AddConditions(Command& command);
    void AddObserver(Command& command, char const* help = "2 (default) or 10 degrees");
    /// Adds --cmc and --k.
    void AddWeights(Command& command);
    /// Adds --condition, the expected measurement condition.
    void AddMeasurementMode(Command& command, char const* help);
    /// Adds --force.
    void AddForce(Command& command, char const* help);

    // The values of these options. They throw evaluation::InputError.
    [[nodiscard]] kv::IllumClass Illuminant() const;
    [[nodiscard]] kv::ObserverClass Observer() const;
    [[nodiscard]] evaluation::FormulaWeights Weights() const;
    [[nodiscard]] std::string const& WeightsOfCmc() const noexcept { return cmc_; }
    [[nodiscard]] std::string const& WeightsOfCie94() const noexcept { return k94_; }
    /// "M0" to "M3", or empty.
    [[nodiscard]] std::string MeasurementMode() const;
    /// Returns the illuminant and the observer that the user did not name: a file that states others gives a
    /// warning.
    [[nodiscard]] evaluation::RequestedConditions Defaults() const;
    [[nodiscard]] bool NamesObserver() const noexcept { return !observer_.empty(); }
    [[nodiscard]] std::string const& FileName() const noexcept { return file_; }

    /// Reads FILE, or another file, writes its warnings and one note on what was assumed, and compares what
    /// it states with the request, to which the options add the conditions of measurement. Throws
    /// files::ReadError.
    [[nodiscard]] files::MeasurementFile Load(evaluation::RequestedConditions requested = {});
    [[nodiscard]] files::MeasurementFile Load(std::string const& path,
                                              evaluation::RequestedConditions requested);
    /// Returns the samples chosen by --only.
    [[nodiscard]] std::vector<std::size_t> Chosen(files::MeasurementFile const& file) const;
    /// Throws evaluation::InputError if the file exists and --force is not given.
    void CheckOutput(std::string const& path) const;

    /// Returns the conditions that every answer on this file begins with.
    [[nodiscard]] static std::vector<Condition> ConditionsOf(files::MeasurementFile const& file);
    /// Appends the illuminant and the observer.
    void AppendConditions(std::vector<Condition>& conditions) const;
    /// Sets the illuminant and the observer in the library's context.
    void ApplyConditions() const;

    /// The column of sample names, and a row with a name and a swatch.
    [[nodiscard]] static Column NameColumn() { return TextColumn("name", "name"); }
    [[nodiscard]] static Row RowOf(files::Sample const& sample) {
        return {{sample.name}, ToRgb(sample.spectrum)};
    }

    /// Writes the answer in the format of --format.
    void Deliver(Answer const& answer) const;
    /// Writes an answer of one table.
    void Deliver(char const* command, std::vector<Condition> conditions, Table table) const;

    [[nodiscard]] Messages& GetMessages() noexcept { return messages_; }
    [[nodiscard]] Environment const& GetEnvironment() const noexcept { return environment_; }

  private:
    Environment const& environment_;
    Messages messages_;
    std::string file_;
    std::string format_ = "table";
    std::vector<std::string> only_;
    std::string scale_;
    long table_ = 0;
    std::string illuminant_;
    std::string observer_;
    std::string cmc_ = "2:1";
    std::string k94_ = "1:1:1";
    std::string measurementMode_;
    std::string filter_;
    bool isForced_ = false;
};

}  // namespace kvcolor
