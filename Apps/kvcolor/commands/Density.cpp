#include "Apps/evaluation/Conditions.h"
#include "Apps/evaluation/InputError.h"
#include "Apps/files/Numbers.h"
#include "Apps/files/Text.h"
#include "Apps/kvcolor/SampleNames.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"
#include "KVUtils/KVUtils.h"

#include <array>
#include <memory>
#include <optional>

namespace kvcolor {

namespace {

using evaluation::HasColourFilters;
using evaluation::InputError;
using evaluation::NameOf;
using files::MeasurementFile;
using files::Quoted;
using files::Sample;

constexpr int Channels = 4;
constexpr std::array<char const*, Channels> ChannelNames = {"visual", "red", "green", "blue"};

struct DensityOptions {
    std::vector<std::string> standards;
    bool allStandards = false;
    std::string paper;
    std::string solid;
    std::string filter = "auto";
};

/// The samples that densities and dot areas are relative to.
struct References {
    Sample const* paper = nullptr;
    Sample const* solid = nullptr;
};

/// A density standard and, for dot areas, one of its filters.
struct Densitometer {
    kv::DStdClass standard;
    std::optional<int> areaFilter;
};

std::vector<kv::DStdClass> StandardsOf(DensityOptions const& options) {
    std::vector<kv::DStdClass> standards;
    if (options.allStandards) {
        for (kv::DStdType const type : evaluation::DensityStandards()) standards.emplace_back(type);
    }
    for (std::string const& name : options.standards)
        standards.push_back(evaluation::ParseDensityStandard(name));
    if (standards.empty()) standards.emplace_back(kv::DStdType::AnsiT);
    return standards;
}

/// Returns nothing for "auto".
std::optional<int> ParseFilterIndex(std::string const& text) {
    if (text == "auto") return std::nullopt;
    auto const index = files::ToWhole(text);
    if (index && *index < Channels) return index;
    throw InputError("unknown density filter " + Quoted(text) +
                     " (choose from auto, 0 (visual), 1 (red), 2 (green), 3 (blue))");
}

References FindReferences(Session& session, DensityOptions const& options, MeasurementFile const& file) {
    auto const find = [&](std::string const& name) -> Sample const* {
        return name.empty() ? nullptr : &file.samples[FindSample(file, name, session.GetMessages())];
    };
    return {find(options.paper), find(options.solid)};
}

/// Sets the standard, then the paper, whose responses depend on the filters of the standard.
void Use(kv::DStdClass const& standard, Sample const* paper) {
    kv::CMetry::SetDensityStandard(standard);
    kv::CMetry::EnterWhite(paper != nullptr ? paper->spectrum : kv::Spectrum());
}

/// Returns the densitometer of a standard; writes notes and warnings on it.
Densitometer Prepare(Session& session, References const& references, kv::DStdClass const& standard,
                     std::optional<int> filter) {
    Use(standard, references.paper);
    if (!HasColourFilters(standard)) {
        session.GetMessages().Detail(NameOf(standard) + " has only the visual filter");
        if (filter && *filter > 0)
            throw InputError(NameOf(standard) + " has no filter " + std::to_string(*filter));
    }
    Densitometer densitometer{standard, std::nullopt};
    if (references.solid == nullptr) return densitometer;

    kv::Spectrum const& solid = references.solid->spectrum;
    int const index = filter ? *filter : kv::DensityVector(solid, true).AutoFilter();
    if (kv::Phi(index, solid, solid).GetDenominator() > 0) {
        densitometer.areaFilter = index;
    } else {
        session.GetMessages().Warn("solid " + Quoted(references.solid->name) +
                                   " is not darker than the paper for the " +
                                   ChannelNames.at(static_cast<std::size_t>(index)) + " filter of " +
                                   NameOf(standard) + ": no dot areas");
    }
    return densitometer;
}

std::vector<Column> Columns(References const& references, bool namesStandard) {
    std::vector<Column> columns = {Session::NameColumn()};
    if (namesStandard) columns.push_back(TextColumn("density standard", "standard"));
    for (char const* const channel : ChannelNames) columns.push_back(NumberColumn(channel, channel));
    columns.push_back(TextColumn("filter", "filter"));
    if (references.solid != nullptr) {
        columns.push_back(NumberColumn("area", "area", 1, "%"));
        columns.push_back(TextColumn("area filter", "by"));
    }
    return columns;
}

/// Appends the cells of a sample after its name.
void AppendDensities(Row& row, Sample const& sample, References const& references,
                     Densitometer const& densitometer) {
    kv::DensityVector const densities(sample.spectrum, references.paper != nullptr);
    int const channels = HasColourFilters(densitometer.standard) ? Channels : 1;
    for (int i = 0; i < Channels; ++i) row.cells.push_back(i < channels ? Cell(densities[i]) : Cell());
    row.cells.emplace_back(ChannelNames.at(static_cast<std::size_t>(densities.AutoFilter())));

    if (references.solid == nullptr) return;
    if (!densitometer.areaFilter) {
        row.cells.resize(row.cells.size() + 2);
        return;
    }
    kv::Phi const area(*densitometer.areaFilter, sample.spectrum, references.solid->spectrum);
    row.cells.emplace_back(static_cast<float>(100.0 * float{area}));
    row.cells.emplace_back(ChannelNames.at(static_cast<std::size_t>(area.GetFilterIndex())));
}

std::vector<Condition> ConditionsOf(MeasurementFile const& file, References const& references,
                                    std::vector<kv::DStdClass> const& standards) {
    auto conditions = Session::ConditionsOf(file);
    if (standards.size() == 1) conditions.push_back({"density standard", NameOf(standards.front())});
    conditions.push_back({"densities", references.paper == nullptr ? "absolute" : "relative"});
    if (references.paper != nullptr) conditions.push_back({"paper", references.paper->name});
    if (references.solid != nullptr) conditions.push_back({"solid", references.solid->name});
    return conditions;
}

/// Warns of samples without any reflectance, whose densities have no meaning.
void WarnOfBlack(Session& session, MeasurementFile const& file, std::vector<std::size_t> const& chosen) {
    std::vector<std::string> names;
    for (std::size_t const index : chosen) {
        bool isBlack = true;
        for (int i = 0; i < kv::SpectralPoints; ++i)
            isBlack = isBlack && file.samples[index].spectrum[i] <= 0;
        if (isBlack) names.push_back(Quoted(file.samples[index].name));
    }
    constexpr std::size_t maxNames = 5;
    if (names.empty()) return;
    session.GetMessages().Warn(files::Counted(names.size(), "sample") +
                               " without any reflectance, whose densities "
                               "are arbitrary: " +
                               files::List(names, maxNames));
}

void RunDensity(Session& session, DensityOptions const& options) {
    std::vector<kv::DStdClass> const standards = StandardsOf(options);
    std::optional<int> const filter = ParseFilterIndex(options.filter);
    MeasurementFile const file = session.Load();
    auto const chosen = session.Chosen(file);
    References const references = FindReferences(session, options, file);
    bool const namesStandard = standards.size() > 1;

    evaluation::ApplyConditions(kv::IllumClass(kv::IllumType::D50),
                                kv::ObserverClass(kv::ObserverType::TwoDegrees), standards.front());
    std::vector<Densitometer> densitometers;
    densitometers.reserve(standards.size());
    for (kv::DStdClass const& standard : standards) {
        densitometers.push_back(Prepare(session, references, standard, filter));
    }

    WarnOfBlack(session, file, chosen);
    Table table{"samples", Columns(references, namesStandard), {}};
    Progress progress(session.GetEnvironment(), "measuring densities", chosen.size());
    for (std::size_t const index : chosen) {
        for (Densitometer const& densitometer : densitometers) {
            Use(densitometer.standard, references.paper);
            Row row = Session::RowOf(file.samples[index]);
            if (namesStandard) row.cells.emplace_back(NameOf(densitometer.standard));
            AppendDensities(row, file.samples[index], references, densitometer);
            table.rows.push_back(std::move(row));
        }
        progress.Step();
    }
    session.Deliver("density", ConditionsOf(file, references, standards), std::move(table));
}

}  // namespace

void AddDensity(CommandLine& program, Session& session) {
    auto const options = std::make_shared<DensityOptions>();
    Command command = program.Add("density", "Compute densities and dot areas of each sample");
    session.AddFileOptions(command);
    command.Add({.name = "--standard",
                 .help = "ANSI T (default), ANSI A, ANSI M, DIN, DIN NB, SPI or DS1",
                 .value = "NAME"},
                options->standards);
    command.Add({.name = "--all", .help = "All density standards"}, options->allStandards);
    command.Add({.name = "--paper", .help = "Densities relative to this sample", .value = "NAME"},
                options->paper);
    command.Add(
        {.name = "--solid", .help = "Dot areas relative to this sample", .value = "NAME", .needs = "--paper"},
        options->solid);
    command.Add({.name = "--filter",
                 .help = "Filter of the dot areas: auto (default, that of the solid) or 0 to 3",
                 .value = "NUMBER",
                 .needs = "--solid"},
                options->filter);
    command.Finish("Example:\n  kvcolor density ink.txt --standard 'ANSI T' --paper 0 --solid 100",
                   [&session, options] { RunDensity(session, *options); });
}

}  // namespace kvcolor
