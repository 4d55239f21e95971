#include "Apps/kvcolor/Session.h"

#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/output/Writers.h"
#include "Platform/Utf8Path.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace kvcolor {

void Session::AddOutputOptions(Command& command) {
    command.Add({.name = "--format",
                 .help = "table (default), csv or json",
                 .value = "FORMAT",
                 .choices = {"table", "csv", "json"}},
                format_);
    AddVerbosity(command);
}

void Session::AddVerbosity(Command& command) {
    command.Add({.name = "-q,--quiet", .help = "Suppress notes; warnings are still shown"},
                messages_.IsQuiet());
    command.Add({.name = "-v,--verbose", .help = "Show details on how the file was read"},
                messages_.IsVerbose());
}

void Session::AddInputOptions(Command& command) {
    command.Add(
        {.name = "FILE", .help = "Measurements: CGATS, ISO 28178, CSV or a data file", .isRequired = true},
        file_);
    command.Add({.name = "--only",
                 .help = "Only these samples: names, patterns (neutral*), numbers (#3)",
                 .value = "NAME"},
                only_);
    command.Add({.name = "--scale",
                 .help = "Scale of the reflectances, if the guess is wrong: percent or fraction",
                 .value = "SCALE",
                 .choices = {"percent", "fraction"}},
                scale_);
    constexpr long maxTable = 1'000'000;
    command.Add(
        {.name = "--table", .help = "Read this table; the first with spectra by default", .value = "N"},
        table_, 1, maxTable);
    AddMeasurementMode(command, "Expected measurement condition: M0 to M3");
    command.Add({.name = "--instrument-filter",
                 .help = "Expected instrument filter: No, Pol, UV, ...",
                 .value = "FILTER"},
                filter_);
}

void Session::AddFileOptions(Command& command) {
    AddInputOptions(command);
    AddOutputOptions(command);
}

void Session::AddConditions(Command& command) {
    command.Add(
        {.name = "--illuminant", .help = "D50 (default); kvcolor illuminants lists all", .value = "NAME"},
        illuminant_);
    AddObserver(command);
}

void Session::AddObserver(Command& command, char const* help) {
    command.Add({.name = "--observer", .help = help, .value = "ANGLE"}, observer_);
}

void Session::AddWeights(Command& command) {
    command.Add({.name = "--cmc", .help = "Weights of CMC, 2:1 by default", .value = "l:c"}, cmc_);
    command.Add({.name = "--k", .help = "Weights of CIE94, 1:1:1 by default", .value = "kL:kC:kH"}, k94_);
}

void Session::AddMeasurementMode(Command& command, char const* help) {
    command.Add({.name = "--condition", .help = help, .value = "M"}, measurementMode_);
}

void Session::AddForce(Command& command, char const* help) {
    command.Add({.name = "--force", .help = help}, isForced_);
}

kv::IllumClass Session::Illuminant() const {
    return evaluation::ParseIlluminant(illuminant_.empty() ? "D50" : illuminant_);
}
kv::ObserverClass Session::Observer() const {
    return evaluation::ParseObserver(observer_.empty() ? "2" : observer_);
}
evaluation::FormulaWeights Session::Weights() const { return evaluation::ParseWeights(cmc_, k94_); }
std::string Session::MeasurementMode() const {
    return measurementMode_.empty() ? "" : evaluation::ParseMeasurementMode(measurementMode_);
}

evaluation::RequestedConditions Session::Defaults() const {
    evaluation::RequestedConditions defaults;
    if (illuminant_.empty()) defaults.illuminants = {Illuminant()};
    if (observer_.empty()) defaults.observer = Observer();
    // Names that the user gave are checked before the file is read.
    static_cast<void>(Illuminant());
    static_cast<void>(Observer());
    return defaults;
}

files::MeasurementFile Session::Load(evaluation::RequestedConditions requested) {
    return Load(file_, std::move(requested));
}

files::MeasurementFile Session::Load(std::string const& path, evaluation::RequestedConditions requested) {
    requested.measurementMode = MeasurementMode();
    if (!filter_.empty()) requested.filter = evaluation::ParseFilter(filter_);
    files::ReadOptions options;
    if (!scale_.empty()) options.scale = scale_ == "percent" ? files::Scale::Percent : files::Scale::Fraction;
    options.table = static_cast<std::size_t>(table_);
    files::MeasurementFile file = files::ReadMeasurementFile(path, options);
    for (std::string const& warning : file.warnings) messages_.Warn(file.path + ": " + warning);
    if (!file.assumptions.empty()) messages_.Note(file.path + ": assumed " + files::List(file.assumptions));
    for (std::string const& note : file.notes) messages_.Detail(file.path + ": " + note);
    messages_.Write(evaluation::CheckStated(file, requested));
    return file;
}

std::vector<std::size_t> Session::Chosen(files::MeasurementFile const& file) const {
    return ChooseSamples(file, only_);
}

void Session::CheckOutput(std::string const& path) const {
    std::error_code ignored;
    if (!isForced_ && std::filesystem::exists(platform::PathOf(path), ignored)) {
        throw evaluation::InputError(path + " already exists (use --force to overwrite)");
    }
}

std::vector<Condition> Session::ConditionsOf(files::MeasurementFile const& file) {
    std::vector<Condition> conditions = {{"file", file.path}};
    if (!file.stated.measurementMode.empty()) {
        conditions.push_back({"measurement condition", file.stated.measurementMode});
    }
    if (!file.stated.filter.empty()) conditions.push_back({"instrument filter", file.stated.filter});
    return conditions;
}

void Session::AppendConditions(std::vector<Condition>& conditions) const {
    conditions.push_back({"illuminant", evaluation::NameOf(Illuminant())});
    conditions.push_back({"observer", evaluation::NameOf(Observer())});
}

void Session::ApplyConditions() const { evaluation::ApplyConditions(Illuminant(), Observer()); }

void Session::Deliver(Answer const& answer) const {
    if (format_ == "csv") {
        WriteCsv(environment_.out, answer);
    } else if (format_ == "json") {
        WriteJson(environment_.out, answer);
    } else {
        WriteTable(environment_.out, answer, DepthOf(environment_));
    }
}

void Session::Deliver(char const* command, std::vector<Condition> conditions, Table table) const {
    Answer answer{command, std::move(conditions), {}};
    answer.tables.push_back(std::move(table));
    Deliver(answer);
}

}  // namespace kvcolor
