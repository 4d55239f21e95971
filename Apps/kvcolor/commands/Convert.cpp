#include "Apps/kvcolor/Coordinates.h"
#include "Apps/kvcolor/Session.h"
#include "Apps/kvcolor/commands/Commands.h"
#include "Apps/kvcolor/output/Progress.h"

namespace kvcolor {

namespace {

void RunConvert(Session& session) {
    auto const file = session.Load(session.Defaults());
    auto const chosen = session.Chosen(file);
    session.ApplyConditions();

    Table table{"samples", ColourColumns(), {}};
    Progress progress(session.GetEnvironment(), "converting", chosen.size());
    for (std::size_t const index : chosen) {
        table.rows.push_back(ColourRow(file.samples[index]));
        progress.Step();
    }
    auto conditions = Session::ConditionsOf(file);
    session.AppendConditions(conditions);
    session.Deliver("convert", std::move(conditions), std::move(table));
}

}  // namespace

void AddConvert(CommandLine& program, Session& session) {
    Command command = program.Add("convert", "Convert each sample to XYZ, xyY, Lab and LCh");
    session.AddFileOptions(command);
    session.AddConditions(command);
    command.Finish("Example:\n  kvcolor convert chart.csv --illuminant A --observer 10 --only 'neutral*'",
                   [&session] { RunConvert(session); });
}

}  // namespace kvcolor
