// Commands: the commands of kvcolor. Each function adds one to the program. A command throws
// evaluation::InputError, files::ReadError or files::WriteError.
#pragma once

namespace kvcolor {

class CommandLine;
class Session;

/// Computes the colour coordinates of each sample.
void AddConvert(CommandLine& program, Session& session);
/// Computes the densities of each sample, absolute or relative to a paper, and dot areas.
void AddDensity(CommandLine& program, Session& session);
/// Computes colour differences to a sample or between two files, with their summary.
void AddDifference(CommandLine& program, Session& session);
/// Computes how far samples that match a standard under one illuminant are from it under others.
void AddMetamerism(CommandLine& program, Session& session);
/// Computes the colour strength relative to a solid.
void AddStrength(CommandLine& program, Session& session);
/// Writes the samples to a data file of the suite.
void AddExport(CommandLine& program, Session& session);
/// Measures a chart through the measuring server.
void AddMeasure(CommandLine& program, Session& session);
/// Prints the samples as a report.
void AddReport(CommandLine& program, Session& session);
/// Lists the illuminants with their white points.
void AddIlluminants(CommandLine& program, Session& session);

}  // namespace kvcolor
