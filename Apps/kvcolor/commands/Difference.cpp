#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/evaluation/Pairing.h"
#include "Apps/evaluation/Summary.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "KVUtils/KVUtils.h"
#include "Platform/Utf8Path.h"

#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>

namespace kvcolor {

namespace {

using evaluation::DifferenceFormula;
using evaluation::FormulaWeights;
using evaluation::IndexPair;
using evaluation::InputError;
using files::MeasurementFile;
using files::Quoted;

struct DifferenceOptions {
    std::string standard;
    std::string formulas;
    bool summaryOnly = false;
};

/// The spectra to compare and the conditions of the answer.
struct Comparison {
    MeasurementFile samples;
    std::optional<MeasurementFile> otherFile;  // of the standards; else they are samples too
    std::vector<IndexPair> pairs;
    std::vector<Condition> conditions;

    [[nodiscard]] MeasurementFile const& Standards() const { return otherFile ? *otherFile : samples; }
};

/// The standard named by the user.
struct Standard {
    std::string name;
    bool isFile;
};

bool IsFile(std::string const& path) {
    std::error_code error;
    std::filesystem::path const name = platform::PathOf(path);
    return std::filesystem::exists(name, error) && !std::filesystem::is_directory(name, error);
}

/// Decides whether the text names a file or a sample; a prefix settles it.
Standard ParseStandard(std::string const& text) {
    constexpr std::string_view filePrefix = "file:";
    constexpr std::string_view samplePrefix = "sample:";
    if (text.starts_with(filePrefix)) return {text.substr(filePrefix.size()), true};
    if (text.starts_with(samplePrefix)) return {text.substr(samplePrefix.size()), false};
    return {text, IsFile(text)};
}

Comparison CompareFiles(Session& session, Standard const& standard, bool isPrefixed) {
    Comparison comparison{
        session.Load(session.Defaults()), session.Load(standard.name, session.Defaults()), {}, {}};
    MeasurementFile const& samples = comparison.samples;
    if (!isPrefixed && HasSample(samples, standard.name)) {
        session.GetMessages().Warn("--standard " + standard.name + " is a file and a sample of " +
                                   samples.path + "; using the file (use sample:" + standard.name +
                                   " for the sample)");
    }
    evaluation::Remarks remarks = evaluation::CheckStatedAlike(samples, comparison.Standards());
    comparison.pairs =
        evaluation::PairByName(samples, session.Chosen(samples), comparison.Standards(), remarks);
    session.GetMessages().Write(remarks);
    comparison.conditions = Session::ConditionsOf(samples);
    comparison.conditions.push_back({"standard file", standard.name});
    return comparison;
}

Comparison CompareWithOne(Session& session, Standard const& named, bool isPrefixed) {
    Comparison comparison{session.Load(session.Defaults()), std::nullopt, {}, {}};
    MeasurementFile const& file = comparison.samples;
    if (!isPrefixed && !HasSample(file, named.name) &&
        named.name.find_first_of("./\\") != std::string::npos) {
        throw InputError("--standard " + named.name + ": neither a file nor a sample of " + file.path);
    }
    std::size_t const standard = FindSample(file, named.name, session.GetMessages());
    for (std::size_t const index : session.Chosen(file)) {
        if (index != standard) comparison.pairs.push_back({index, standard});
    }
    if (comparison.pairs.empty()) throw InputError("no sample other than the standard " + Quoted(named.name));
    comparison.conditions = Session::ConditionsOf(file);
    comparison.conditions.push_back({"standard sample", file.samples[standard].name});
    return comparison;
}

Table TableOfPairs(Session& session, Comparison const& comparison,
                   std::vector<DifferenceFormula> const& formulas, FormulaWeights const& weights) {
    Table table{"samples", {Session::NameColumn()}, {}};
    for (DifferenceFormula const formula : formulas) {
        table.columns.push_back(
            NumberColumn(std::string(evaluation::KeyOf(formula)), evaluation::TitleOf(formula, weights)));
    }

    Progress progress(session.GetEnvironment(), "comparing", comparison.pairs.size());
    for (IndexPair const& indices : comparison.pairs) {
        files::Sample const& sample = comparison.samples.samples[indices.sample];
        evaluation::Pair const pair(sample.spectrum,
                                    comparison.Standards().samples[indices.standard].spectrum);
        Row row = Session::RowOf(sample);
        for (DifferenceFormula const formula : formulas) row.cells.emplace_back(pair.Rate(formula, weights));
        table.rows.push_back(std::move(row));
        progress.Step();
    }
    return table;
}

/// Returns one row per formula. Components are averaged by absolute value: opposite signs would cancel.
Table TableOfSummaries(Table const& pairs, std::vector<DifferenceFormula> const& formulas) {
    Table table{"summary",
                {TextColumn("formula", "formula"), NumberColumn("mean", "mean"),
                 NumberColumn("percentile95", "95th percentile"), NumberColumn("maximum", "maximum"),
                 TextColumn("at", "at"), NumberColumn("count", "of", 0)},
                {}};
    for (std::size_t i = 0; i < formulas.size(); ++i) {
        Column const& column = pairs.columns[i + 1];
        bool const byMagnitude = evaluation::IsSigned(formulas[i]);
        std::vector<float> values;
        for (Row const& row : pairs.rows) {
            float const value = std::get<float>(row.cells[i + 1]);
            values.push_back(byMagnitude ? std::fabs(value) : value);
        }
        Row row{{byMagnitude ? '|' + column.header + '|' : column.header}, std::nullopt};
        if (auto const summary = evaluation::Summarise(values)) {
            row.cells.insert(row.cells.end(), {summary->mean, summary->percentile95, summary->maximum,
                                               pairs.rows[summary->whereMaximum].cells[0],
                                               static_cast<float>(summary->count)});
        }
        row.cells.resize(table.columns.size());
        table.rows.push_back(std::move(row));
    }
    return table;
}

void RunDifference(Session& session, DifferenceOptions const& options) {
    std::vector<DifferenceFormula> const formulas = evaluation::ParseFormulas(options.formulas);
    FormulaWeights const weights = session.Weights();

    Standard const standard = ParseStandard(options.standard);
    bool const isPrefixed = standard.name != options.standard;
    Comparison comparison = standard.isFile ? CompareFiles(session, standard, isPrefixed)
                                            : CompareWithOne(session, standard, isPrefixed);
    session.ApplyConditions();
    session.AppendConditions(comparison.conditions);
    comparison.conditions.push_back({"CMC", session.WeightsOfCmc()});
    comparison.conditions.push_back({"CIE94", session.WeightsOfCie94()});

    Table pairs = TableOfPairs(session, comparison, formulas, weights);
    Table summary = TableOfSummaries(pairs, formulas);
    Answer answer{"difference", std::move(comparison.conditions), {}};
    if (!options.summaryOnly) answer.tables.push_back(std::move(pairs));
    answer.tables.push_back(std::move(summary));
    session.Deliver(answer);
}

}  // namespace

void AddDifference(CommandLine& program, Session& session) {
    auto const options = std::make_shared<DifferenceOptions>();
    Command command = program.Add(
        "difference", "Compute colour differences to a sample or a second file, with their summary");
    session.AddFileOptions(command);
    command.Add(
        {.name = "--standard",
         .help =
             "A second file, matched by name, or else a sample of FILE; file:... or sample:... settles it",
         .value = "NAME|FILE2",
         .isRequired = true},
        options->standard);
    session.AddConditions(command);
    command.Add({.name = "--formula",
                 .help = "Some of cielab,dL,dC,dH,cmc,cie94,fmc2,mg,korvel1,korvel2; all by default",
                 .value = "NAME,..."},
                options->formulas);
    session.AddWeights(command);
    command.Add({.name = "--summary", .help = "Only the summary, in csv too"}, options->summaryOnly);
    command.Finish(
        "A difference is sample minus standard. The 95th percentile is by nearest rank; the components dL, dC\n"
        "and dH are averaged by absolute value. The csv format contains the samples, or with --summary the\n"
        "summary.\n\n"
        "Example:\n  kvcolor difference proof.csv --standard reference.csv --formula cielab,cmc --cmc 1:1",
        [&session, options] { RunDifference(session, *options); });
}

}  // namespace kvcolor
