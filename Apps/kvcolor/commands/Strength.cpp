#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "Apps/kvcolor/output/Text.h"
#include "KVUtils/KVUtils.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>

namespace kvcolor {

namespace {

struct StrengthOptions {
    std::string paper;
    std::string solid;
    std::string model = "power";
    std::string method = "maximum";
    std::string observer = "2";
};

struct Model {
    char const* name;
    kv::KSFarbartType kind;
};

constexpr std::array<Model, 3> Models = {{
    {"power", kv::KSFarbartType::Power},
    {"corrected", kv::KSFarbartType::CorrectedKubelkaMunk},
    {"plain", kv::KSFarbartType::KubelkaMunk},
}};

/// A model's calculator for one solid.
struct Judge {
    char const* model;
    kv::FarbstaerkeRechner calculator;
};

std::vector<Judge> JudgesOf(StrengthOptions const& options, kv::Spectrum const& paper,
                            kv::Spectrum const& solid) {
    auto const method =
        options.method == "mean" ? kv::KSMethodeType::WeightedMean : kv::KSMethodeType::Maximum;
    std::vector<Judge> judges;
    for (Model const& model : Models) {
        if (options.model != "all" && options.model != model.name) continue;
        kv::KSSpectrum const reference(solid, paper, model.kind);
        if (!(reference.KS(method) > 0.0001F)) {
            throw Unusable("solid \"" + options.solid + "\" absorbs no more than paper \"" + options.paper +
                           "\": it is no measure of strength");
        }
        judges.push_back({model.name, kv::FarbstaerkeRechner(reference, method)});
    }
    return judges;
}

/// The wavelength belongs to the maximum; a mean has none.
std::vector<Column> Columns(std::vector<Judge> const& judges, bool hasWavelength) {
    std::vector<Column> columns = {Session::NameColumn()};
    for (Judge const& judge : judges) {
        std::string const model = judge.model;
        columns.push_back(NumberColumn("strength_" + model, model, 3));
        if (hasWavelength) columns.push_back(NumberColumn("nm_" + model, "at", 0, "nm"));
    }
    return columns;
}

void RunStrength(Session& session, StrengthOptions const& options) {
    kv::ObserverClass const observer = ParseObserver(options.observer);
    bool const byMean = options.method == "mean";
    AskedConditions asked;
    if (byMean) asked.observer = observer;
    auto const file = session.Load(asked);
    auto const chosen = session.Chosen(file);
    auto const find = [&](std::string const& name) -> files::Sample const& {
        return file.samples[FindSample(file, name, session.GetMessages())];
    };
    files::Sample const& paper = find(options.paper);
    files::Sample const& solid = find(options.solid);

    // The weighted mean takes its weights from the observer in force.
    PutInForce(kv::IllumClass(kv::IllumType::D50), observer, kv::DStdClass(kv::DStdType::AnsiT));
    std::vector<Judge> const judges = JudgesOf(options, paper.spectrum, solid.spectrum);

    Table table{"samples", Columns(judges, !byMean), {}};
    Progress progress(session.GetEnvironment(), "rating", chosen.size());
    for (std::size_t const index : chosen) {
        Row row = Session::RowOf(file.samples[index]);
        for (Judge const& judge : judges) {
            row.cells.emplace_back(judge.calculator.DS(file.samples[index].spectrum));
            if (!byMean) row.cells.emplace_back(static_cast<float>(judge.calculator.GetMaxWellenlaenge()));
        }
        table.rows.push_back(std::move(row));
        progress.Step();
    }
    auto conditions = Session::ConditionsOf(file);
    conditions.push_back({"paper", paper.name});
    conditions.push_back({"solid", solid.name});
    conditions.push_back({"method", options.method});
    if (byMean) conditions.push_back({"observer", NameOf(observer)});
    session.Deliver({"strength", conditions, {table}});
}

}  // namespace

void AddStrength(CLI::App& program, Session& session) {
    auto const options = std::make_shared<StrengthOptions>();
    CLI::App* const command =
        program.add_subcommand("strength", "Colour strength of each sample relative to a solid");
    session.AddFileOptions(*command);
    command->add_option("--paper", options->paper, "The unprinted paper")->required()->type_name("NAME");
    command->add_option("--solid", options->solid, "The reference, of strength 1")
        ->required()
        ->type_name("NAME");
    command
        ->add_option("--model", options->model,
                     "Ink model: power (default), corrected or plain Kubelka-Munk, all")
        ->check(CLI::IsMember({"power", "corrected", "plain", "all"}))
        ->type_name("NAME");
    command
        ->add_option("--method", options->method, "By the solid's maximum (default) or by the weighted mean")
        ->check(CLI::IsMember({"maximum", "mean"}))
        ->type_name("NAME");
    command->add_option("--observer", options->observer, "Weights of the mean: 2 (default) or 10 degrees")
        ->type_name("ANGLE");
    command->footer("Example:\n  kvcolor strength ink.txt --paper 0 --solid 100 --model all");
    command->callback([&session, options] { RunStrength(session, *options); });
}

}  // namespace kvcolor
