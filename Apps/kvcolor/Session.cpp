#include "Apps/kvcolor/Session.h"

#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/output/Writers.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace kvcolor {

void Session::AddOutputOptions(CLI::App& command) {
    command.add_option("--format", format_, "table (default), csv or json")
        ->check(CLI::IsMember({"table", "csv", "json"}))
        ->type_name("FORM");
    AddQuietOption(command);
}

void Session::AddQuietOption(CLI::App& command) {
    command.add_flag_callback(
        "-q,--quiet", [this] { messages_.DropNotes(); }, "No notes on choices that were made; warnings stay");
}

void Session::AddFileOptions(CLI::App& command) {
    AddInputOptions(command);
    AddOutputOptions(command);
}

void Session::AddInputOptions(CLI::App& command) {
    command.add_option("FILE", file_, "Measurements: CGATS, ISO 28178, CSV or a data file")
        ->required()
        ->type_name("");
    command.add_option("--only", only_, "Show these samples: names, patterns (neutral*), numbers (#3)")
        ->allow_extra_args(false)
        ->type_name("NAME");
    command.add_option("--condition", measurementMode_, "Expect this measurement condition: M0 to M3")
        ->type_name("M");
    command
        .add_option("--instrument-filter", filter_, "Expect this filter of the instrument: No, Pol, UV, ...")
        ->type_name("FILTER");
}

files::MeasurementFile Session::Load(AskedConditions asked) { return Load(file_, std::move(asked)); }

files::MeasurementFile Session::Load(std::string const& path, AskedConditions asked) {
    if (!measurementMode_.empty()) asked.measurementMode = ParseMeasurementMode(measurementMode_);
    if (!filter_.empty()) asked.filter = ParseFilter(filter_);
    files::MeasurementFile file = files::ReadMeasurementFile(path);
    for (std::string const& note : file.notes) messages_.Note(file.path + ": " + note);
    CheckStated(file, asked, messages_);
    return file;
}

std::vector<std::size_t> Session::Chosen(files::MeasurementFile const& file) const {
    return ChooseSamples(file, only_);
}

std::vector<Condition> Session::ConditionsOf(files::MeasurementFile const& file) {
    std::vector<Condition> conditions = {{"file", file.path}};
    if (!file.stated.measurementMode.empty()) {
        conditions.push_back({"measurement condition", file.stated.measurementMode});
    }
    if (!file.stated.filter.empty()) conditions.push_back({"instrument filter", file.stated.filter});
    return conditions;
}

void Session::Deliver(Report const& report) const {
    if (format_ == "csv") {
        environment_.out << WriteCsv(report);
    } else if (format_ == "json") {
        environment_.out << WriteJson(report);
    } else {
        environment_.out << WriteTable(report, DepthOf(environment_));
    }
}

}  // namespace kvcolor
