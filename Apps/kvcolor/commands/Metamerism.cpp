#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/InputError.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "KVUtils/KVUtils.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace kvcolor {

namespace {

struct MetamerismOptions {
    std::string standard;
    std::string sample;
    std::string reference = "D65";
    std::vector<std::string> tests;
    std::string observer = "2";
};

/// What is judged under: a reference light, and test lights of different names.
struct Lights {
    kv::IllumClass reference;
    std::vector<kv::IllumClass> tests;
    kv::ObserverClass observer;
};

Lights LightsOf(MetamerismOptions const& options) {
    Lights lights{ParseIlluminant(options.reference), {}, ParseObserver(options.observer)};
    for (std::string const& name : options.tests) {
        kv::IllumClass const test = ParseIlluminant(name);
        if (test == lights.reference) {
            throw Unusable("--test " + name + " is the reference light: its index is 0 for every pair");
        }
        if (std::ranges::find(lights.tests, test) == lights.tests.end()) lights.tests.push_back(test);
    }
    if (lights.tests.empty()) lights.tests.emplace_back(kv::IllumType::A);
    return lights;
}

std::vector<std::size_t> SamplesBeside(Session& session, MetamerismOptions const& options,
                                       files::MeasurementFile const& file, std::size_t standard) {
    std::vector<std::size_t> samples;
    if (!options.sample.empty()) {
        samples.push_back(FindSample(file, options.sample, session.GetMessages()));
    } else {
        samples = session.Chosen(file);
    }
    std::erase(samples, standard);
    if (samples.empty()) throw Unusable("no sample beside the standard \"" + options.standard + '"');
    return samples;
}

std::vector<Column> Columns(Lights const& lights) {
    std::string const reference = NameOf(lights.reference);
    std::vector<Column> columns = {Session::NameColumn(),
                                   NumberColumn("dE_ab_" + reference, "dE*ab " + reference)};
    for (kv::IllumClass const& test : lights.tests) {
        columns.push_back(NumberColumn("index_" + NameOf(test), "index " + NameOf(test)));
    }
    return columns;
}

void RunMetamerism(Session& session, MetamerismOptions const& options) {
    Lights const lights = LightsOf(options);
    std::vector<kv::IllumClass> illuminants = lights.tests;
    illuminants.insert(illuminants.begin(), lights.reference);
    auto const file = session.Load({illuminants, lights.observer, "", ""});
    std::size_t const standardIndex = FindSample(file, options.standard, session.GetMessages());
    kv::Spectrum const& standard = file.samples[standardIndex].spectrum;
    auto const samples = SamplesBeside(session, options, file, standardIndex);

    PutInForce(lights.reference, lights.observer, kv::DStdClass(kv::DStdType::AnsiT));
    std::vector<kv::MetamerieRechner> judges;
    for (kv::IllumClass const& test : lights.tests) {
        judges.emplace_back(standard, lights.reference, test, lights.observer);
    }

    Table table{"samples", Columns(lights), {}};
    Progress progress(session.GetEnvironment(), "judging", samples.size());
    for (std::size_t const index : samples) {
        files::Sample const& sample = file.samples[index];
        Row row = Session::RowOf(sample);
        row.cells.emplace_back(kv::DeltaE::CIELAB(kv::LABVector(sample.spectrum), kv::LABVector(standard)));
        for (kv::MetamerieRechner& judge : judges) {
            row.cells.emplace_back(judge.RechneMetamerie(sample.spectrum).GetIndex());
        }
        table.rows.push_back(std::move(row));
        progress.Step();
    }
    auto conditions = Session::ConditionsOf(file);
    conditions.push_back({"standard", file.samples[standardIndex].name});
    conditions.push_back({"reference", NameOf(lights.reference)});
    conditions.push_back({"observer", NameOf(lights.observer)});
    session.Deliver({"metamerism", conditions, {table}});
}

}  // namespace

void AddMetamerism(CLI::App& program, Session& session) {
    auto const options = std::make_shared<MetamerismOptions>();
    CLI::App* const command =
        program.add_subcommand("metamerism", "Metamerism index of samples against a standard");
    session.AddFileOptions(*command);
    command->add_option("--standard", options->standard, "The sample that the others are to match")
        ->required()
        ->type_name("NAME");
    command->add_option("--sample", options->sample, "This sample alone")
        ->type_name("NAME")
        ->excludes("--only");
    command->add_option("--reference", options->reference, "The light of the match, D65 by default")
        ->type_name("NAME");
    command->add_option("--test", options->tests, "The light of the judgement, A by default; may be repeated")
        ->allow_extra_args(false)
        ->type_name("NAME");
    command->add_option("--observer", options->observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    command->footer(
        "The index is the CIELAB difference under the test light, after what remains under the reference\n"
        "light (dE*ab) is taken out.\n\n"
        "Example:\n  kvcolor metamerism patches.txt --standard original --reference D65 --test A --test F11");
    command->callback([&session, options] { RunMetamerism(session, *options); });
}

}  // namespace kvcolor
