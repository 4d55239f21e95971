#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/Measures.h"
#include "Apps/kvcolor/Pairing.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "Apps/kvcolor/output/Summary.h"
#include "KVUtils/KVUtils.h"
#include "Platform/Utf8Path.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <filesystem>
#include <memory>

namespace kvcolor {

namespace {

using files::MeasurementFile;

struct DifferenceOptions {
    std::string standard;
    std::string illuminant = "D50";
    std::string observer = "2";
    std::string measures;
    std::string cmc = "2:1";
    std::string k94 = "1:1:1";
    bool summaryOnly = false;
};

/// Which spectra are compared, and what the report says of it.
struct Comparison {
    MeasurementFile samples;
    MeasurementFile standards;
    std::vector<IndexPair> pairs;
    std::vector<Condition> conditions;
};

bool IsFile(std::string const& path) {
    std::error_code error;
    std::filesystem::path const name = platform::PathOf(path);
    return std::filesystem::exists(name, error) && !std::filesystem::is_directory(name, error);
}

Comparison CompareFiles(Session& session, DifferenceOptions const& options, AskedConditions const& asked) {
    Comparison comparison{session.Load(asked), session.Load(options.standard, asked), {}, {}};
    CheckStatedAlike(comparison.samples, comparison.standards, session.GetMessages());
    comparison.pairs = PairByName(comparison.samples, session.Chosen(comparison.samples),
                                  comparison.standards, session.GetMessages());
    comparison.conditions = Session::ConditionsOf(comparison.samples);
    comparison.conditions.push_back({"standard", options.standard});
    return comparison;
}

Comparison CompareWithOne(Session& session, DifferenceOptions const& options, AskedConditions const& asked) {
    MeasurementFile file = session.Load(asked);
    if (!HasSample(file, options.standard) && options.standard.find_first_of("./\\") != std::string::npos) {
        throw Unusable("--standard " + options.standard + ": neither a file nor a sample of " + file.path);
    }
    std::size_t const standard = FindSample(file, options.standard, session.GetMessages());
    Comparison comparison{file, file, {}, Session::ConditionsOf(file)};
    for (std::size_t const index : session.Chosen(file)) {
        if (index != standard) comparison.pairs.push_back({index, standard});
    }
    if (comparison.pairs.empty()) throw Unusable("no sample beside the standard \"" + options.standard + '"');
    comparison.conditions.push_back({"standard", file.samples[standard].name});
    return comparison;
}

Table TableOfPairs(Session& session, Comparison const& comparison, std::vector<Measure> const& measures,
                   MeasureWeights const& weights) {
    Table table{"samples", {Session::NameColumn()}, {}};
    for (Measure const measure : measures) table.columns.push_back(ColumnOf(measure, weights));

    Progress progress(session.GetEnvironment(), "comparing", comparison.pairs.size());
    for (IndexPair const& indices : comparison.pairs) {
        files::Sample const& sample = comparison.samples.samples[indices.sample];
        Pair const pair(sample.spectrum, comparison.standards.samples[indices.standard].spectrum);
        Row row = Session::RowOf(sample);
        for (Measure const measure : measures) row.cells.emplace_back(pair.Rate(measure, weights));
        table.rows.push_back(std::move(row));
        progress.Step();
    }
    return table;
}

/// One row a measure. Components are summed up by magnitude: those of opposite signs would cancel.
Table TableOfSummaries(Table const& pairs, std::vector<Measure> const& measures) {
    Table table{"summary",
                {TextColumn("measure", "measure"), NumberColumn("mean", "mean"),
                 NumberColumn("percentile95", "95th percentile"), NumberColumn("maximum", "maximum"),
                 TextColumn("at", "at"), NumberColumn("count", "of", 0)},
                {}};
    for (std::size_t i = 0; i < measures.size(); ++i) {
        Column const& column = pairs.columns[i + 1];
        bool const byMagnitude = IsSigned(measures[i]);
        std::vector<float> values;
        for (Row const& row : pairs.rows) {
            float const value = std::get<float>(row.cells[i + 1]);
            values.push_back(byMagnitude ? std::fabs(value) : value);
        }
        Row row{{byMagnitude ? '|' + column.header + '|' : column.header}, std::nullopt};
        if (auto const summary = Summarise(values)) {
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
    std::vector<Measure> const measures = ParseMeasures(options.measures);
    MeasureWeights const weights = ParseMeasureWeights(options.cmc, options.k94);
    kv::IllumClass const illuminant = ParseIlluminant(options.illuminant);
    kv::ObserverClass const observer = ParseObserver(options.observer);
    AskedConditions const asked{{illuminant}, observer, "", ""};

    Comparison comparison = IsFile(options.standard) ? CompareFiles(session, options, asked)
                                                     : CompareWithOne(session, options, asked);
    PutInForce(illuminant, observer, kv::DStdClass(kv::DStdType::AnsiT));
    comparison.conditions.push_back({"illuminant", NameOf(illuminant)});
    comparison.conditions.push_back({"observer", NameOf(observer)});
    comparison.conditions.push_back({"CMC", options.cmc});
    comparison.conditions.push_back({"CIE94", options.k94});

    Table const pairs = TableOfPairs(session, comparison, measures, weights);
    Table const summary = TableOfSummaries(pairs, measures);
    if (options.summaryOnly) {
        session.Deliver({"difference", comparison.conditions, {summary}});
    } else {
        session.Deliver({"difference", comparison.conditions, {pairs, summary}});
    }
}

}  // namespace

void AddDifference(CLI::App& program, Session& session) {
    auto const options = std::make_shared<DifferenceOptions>();
    CLI::App* const command = program.add_subcommand(
        "difference", "Colour differences to a sample or a second file, with their summary");
    session.AddFileOptions(*command);
    command
        ->add_option("--standard", options->standard,
                     "A second file, paired by name, or else a sample of FILE")
        ->required()
        ->type_name("NAME|FILE2");
    command->add_option("--illuminant", options->illuminant, "D50 (default); kvcolor illuminants lists all")
        ->type_name("NAME");
    command->add_option("--observer", options->observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    command
        ->add_option("--measure", options->measures,
                     "Some of cielab,dL,dC,dH,cmc,cie94,fmc2,mg,korvel1,korvel2; all by default")
        ->type_name("NAME,...");
    command->add_option("--cmc", options->cmc, "Weights of CMC, 2:1 by default")->type_name("l:c");
    command->add_option("--k", options->k94, "Weights of CIE94, 1:1:1 by default")->type_name("kL:kC:kH");
    command->add_flag("--summary", options->summaryOnly, "The summary alone, also as csv");
    command->footer(
        "A difference is sample minus standard. The 95th percentile is by nearest rank; dL, dC and dH are\n"
        "summed up by magnitude. As csv the samples are written, or with --summary the summary.\n\n"
        "Example:\n  kvcolor difference proof.csv --standard reference.csv --measure cielab,cmc --cmc 1:1");
    command->callback([&session, options] { RunDifference(session, *options); });
}

}  // namespace kvcolor
