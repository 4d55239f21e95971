// Commands: what kvcolor can do. Each function adds one command to the program, which runs when the
// arguments name it; a command throws Unusable or files::ReadError.
#pragma once

namespace CLI {
class App;
}

namespace kvcolor {

class Session;

/// Colour coordinates of each sample.
void AddConvert(CLI::App& program, Session& session);
/// Densities of each sample, absolute or relative to a paper, and dot areas.
void AddDensity(CLI::App& program, Session& session);
/// Colour differences, to one sample or between two files, with their summary.
void AddDifference(CLI::App& program, Session& session);
/// How far samples that match a standard under one light are from it under others.
void AddMetamerism(CLI::App& program, Session& session);
/// Colour strength relative to a solid.
void AddStrength(CLI::App& program, Session& session);
/// The samples in a data file of the suite.
void AddExport(CLI::App& program, Session& session);
/// A chart, patch by patch through the measuring server.
void AddMeasure(CLI::App& program, Session& session);
/// The samples as a report on paper.
void AddChartReport(CLI::App& program, Session& session);
/// The illuminants on offer with their white points.
void AddIlluminants(CLI::App& program, Session& session);

}  // namespace kvcolor
