// ChartReport: a measured chart on paper, as it is handed to a customer: what was measured under which
// conditions, the spectra of some samples, and a table of all of them with their difference to a standard.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/printing/MyPrinter.h"

#include <cstddef>
#include <string>
#include <vector>

namespace report {

/// Which part of a sheet is reported. Indices are those of its samples; one that it lacks is left out.
struct ReportOptions {
    std::vector<std::size_t> samples;  // in their order
    std::vector<std::size_t> curves;   // whose spectra are drawn; none for no plot
    std::string language;              // of the texts, for the document: "en", "de"
};

/// Writes the report through the printer, as one job. The texts are those of the group "ChartReport" and, for
/// names of colours, "FarbTexte". The head line's user and the foot note's program are the printer's matter.
/// False when the printer refused the job, the person has aborted it, or it did not arrive.
bool PrintChartReport(kv::MyPrinter& printer, evaluation::ColourSheet const& sheet,
                      ReportOptions const& options);

}  // namespace report
