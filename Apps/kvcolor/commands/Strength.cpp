#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "KVUtils/KVUtils.h"

#include <array>
#include <memory>

namespace kvcolor {

namespace {

using evaluation::InputError;
using files::Quoted;

struct StrengthOptions {
    std::string paper;
    std::string solid;
    std::string model = "power";
    std::string method = "maximum";
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

/// The calculator of a model for one solid.
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
            throw InputError("solid " + Quoted(options.solid) + " absorbs no more than paper " +
                             Quoted(options.paper) + " (choose a darker solid)");
        }
        judges.push_back({model.name, kv::FarbstaerkeRechner(reference, method)});
    }
    return judges;
}

/// Only the maximum has a wavelength.
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
    kv::ObserverClass const observer = session.Observer();
    bool const byMean = options.method == "mean";
    evaluation::RequestedConditions requested;
    if (byMean && !session.NamesObserver()) requested.observer = observer;
    auto const file = session.Load(requested);
    auto const chosen = session.Chosen(file);
    auto const find = [&](std::string const& name) -> files::Sample const& {
        return file.samples[FindSample(file, name, session.GetMessages())];
    };
    files::Sample const& paper = find(options.paper);
    files::Sample const& solid = find(options.solid);

    // The weighted mean uses the observer in force.
    evaluation::ApplyConditions(kv::IllumClass(kv::IllumType::D50), observer);
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
    if (byMean) conditions.push_back({"observer", evaluation::NameOf(observer)});
    session.Deliver("strength", std::move(conditions), std::move(table));
}

}  // namespace

void AddStrength(CommandLine& program, Session& session) {
    auto const options = std::make_shared<StrengthOptions>();
    Command command =
        program.Add("strength", "Compute the colour strength of each sample relative to a solid");
    session.AddFileOptions(command);
    command.Add({.name = "--paper", .help = "The unprinted paper", .value = "NAME", .isRequired = true},
                options->paper);
    command.Add(
        {.name = "--solid", .help = "The reference, of strength 1", .value = "NAME", .isRequired = true},
        options->solid);
    command.Add({.name = "--model",
                 .help = "Ink model: power (default), corrected or plain Kubelka-Munk, all",
                 .value = "NAME",
                 .choices = {"power", "corrected", "plain", "all"}},
                options->model);
    command.Add({.name = "--method",
                 .help = "At the maximum of the solid (default) or by the weighted mean",
                 .value = "NAME",
                 .choices = {"maximum", "mean"}},
                options->method);
    session.AddObserver(command, "Weights of the mean: 2 (default) or 10 degrees");
    command.Finish("Example:\n  kvcolor strength ink.txt --paper 0 --solid 100 --model all",
                   [&session, options] { RunStrength(session, *options); });
}

}  // namespace kvcolor
