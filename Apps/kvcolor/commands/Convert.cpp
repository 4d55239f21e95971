#include "Apps/kvcolor/Conditions.h"
#include "Apps/kvcolor/Coordinates.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kvcolor {

namespace {

struct ConvertOptions {
    std::string illuminant = "D50";
    std::string observer = "2";
};

void RunConvert(Session& session, ConvertOptions const& options) {
    kv::IllumClass const illuminant = ParseIlluminant(options.illuminant);
    kv::ObserverClass const observer = ParseObserver(options.observer);
    auto const file = session.Load({{illuminant}, observer, "", ""});
    auto const chosen = session.Chosen(file);
    PutInForce(illuminant, observer, kv::DStdClass(kv::DStdType::AnsiT));

    Table table{"samples", ColourColumns(), {}};
    Progress progress(session.GetEnvironment(), "converting", chosen.size());
    for (std::size_t const index : chosen) {
        table.rows.push_back(ColourRow(file.samples[index]));
        progress.Step();
    }
    auto conditions = Session::ConditionsOf(file);
    conditions.push_back({"illuminant", NameOf(illuminant)});
    conditions.push_back({"observer", NameOf(observer)});
    session.Deliver({"convert", conditions, {table}});
}

}  // namespace

void AddConvert(CLI::App& program, Session& session) {
    auto const options = std::make_shared<ConvertOptions>();
    CLI::App* const command = program.add_subcommand("convert", "XYZ, xyY, Lab and LCh of each sample");
    session.AddFileOptions(*command);
    command->add_option("--illuminant", options->illuminant, "D50 (default); kvcolor illuminants lists all")
        ->type_name("NAME");
    command->add_option("--observer", options->observer, "2 (default) or 10 degrees")->type_name("ANGLE");
    command->footer("Example:\n  kvcolor convert chart.csv --illuminant A --observer 10 --only 'neutral*'");
    command->callback([&session, options] { RunConvert(session, *options); });
}

}  // namespace kvcolor
