#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "KVUtils/KVUtils.h"

#include <algorithm>
#include <memory>

namespace kvcolor {

namespace {

using evaluation::InputError;
using evaluation::NameOf;

struct MetamerismOptions {
    std::string standard;
    std::string sample;
    std::string reference;  // empty for D65
    std::vector<std::string> tests;
};

/// The reference illuminant and the different test illuminants.
struct Illuminants {
    kv::IllumClass reference;
    std::vector<kv::IllumClass> tests;
};

Illuminants IlluminantsOf(MetamerismOptions const& options) {
    Illuminants illuminants{
        evaluation::ParseIlluminant(options.reference.empty() ? "D65" : options.reference), {}};
    for (std::string const& name : options.tests) {
        kv::IllumClass const test = evaluation::ParseIlluminant(name);
        if (test == illuminants.reference) {
            throw InputError("--test " + name + " is the reference illuminant: every index would be 0");
        }
        if (std::ranges::find(illuminants.tests, test) == illuminants.tests.end())
            illuminants.tests.push_back(test);
    }
    if (illuminants.tests.empty()) illuminants.tests.emplace_back(kv::IllumType::A);
    return illuminants;
}

std::vector<std::size_t> OtherSamples(Session& session, MetamerismOptions const& options,
                                      files::MeasurementFile const& file, std::size_t standard) {
    std::vector<std::size_t> samples;
    if (!options.sample.empty()) {
        samples.push_back(FindSample(file, options.sample, session.GetMessages()));
    } else {
        samples = session.Chosen(file);
    }
    std::erase(samples, standard);
    if (samples.empty())
        throw InputError("no sample other than the standard " + files::Quoted(options.standard));
    return samples;
}

std::vector<Column> Columns(Illuminants const& illuminants) {
    std::string const reference = NameOf(illuminants.reference);
    std::vector<Column> columns = {Session::NameColumn(),
                                   NumberColumn("dE_ab_" + reference, "dE*ab " + reference)};
    for (kv::IllumClass const& test : illuminants.tests) {
        columns.push_back(NumberColumn("index_" + NameOf(test), "index " + NameOf(test)));
    }
    return columns;
}

void RunMetamerism(Session& session, MetamerismOptions const& options) {
    Illuminants const illuminants = IlluminantsOf(options);
    kv::ObserverClass const observer = session.Observer();
    evaluation::RequestedConditions defaults;
    if (options.reference.empty() && options.tests.empty()) {
        defaults.illuminants = {illuminants.reference, illuminants.tests.front()};
    }
    if (!session.NamesObserver()) defaults.observer = observer;
    auto const file = session.Load(defaults);
    std::size_t const standardIndex = FindSample(file, options.standard, session.GetMessages());
    kv::Spectrum const& standard = file.samples[standardIndex].spectrum;
    auto const samples = OtherSamples(session, options, file, standardIndex);

    evaluation::ApplyConditions(illuminants.reference, observer);
    std::vector<kv::MetamerieRechner> judges;
    for (kv::IllumClass const& test : illuminants.tests) {
        judges.emplace_back(standard, illuminants.reference, test, observer);
    }

    Table table{"samples", Columns(illuminants), {}};
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
    conditions.push_back({"reference", NameOf(illuminants.reference)});
    conditions.push_back({"observer", NameOf(observer)});
    session.Deliver("metamerism", std::move(conditions), std::move(table));
}

}  // namespace

void AddMetamerism(CommandLine& program, Session& session) {
    auto const options = std::make_shared<MetamerismOptions>();
    Command command = program.Add("metamerism", "Compute the metamerism index of samples against a standard");
    session.AddFileOptions(command);
    command.Add({.name = "--standard",
                 .help = "The sample that the others are compared with",
                 .value = "NAME",
                 .isRequired = true},
                options->standard);
    command.Add({.name = "--sample", .help = "Only this sample", .value = "NAME", .excludes = "--only"},
                options->sample);
    command.Add({.name = "--reference", .help = "Reference illuminant, D65 by default", .value = "NAME"},
                options->reference);
    command.Add({.name = "--test", .help = "Test illuminant, A by default; may be repeated", .value = "NAME"},
                options->tests);
    session.AddObserver(command);
    command.Finish(
        "The index is the CIELAB difference under the test illuminant after correction for the difference\n"
        "under the reference illuminant (dE*ab).\n\n"
        "Example:\n  kvcolor metamerism patches.txt --standard original --reference D65 --test A --test F11",
        [&session, options] { RunMetamerism(session, *options); });
}

}  // namespace kvcolor
