// ChartReport: prints a measured chart for a customer: the conditions, spectra of some samples, and a table
// of all samples with their differences from a standard.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/printing/MyPrinter.h"

#include <cstddef>
#include <string>
#include <vector>

namespace report {

/// What to report. Values are indices of the sheet's samples; those out of range are skipped.
struct ReportOptions {
    std::vector<std::size_t> samples;  // rows of the table, in this order
    std::vector<std::size_t> curves;   // spectra to draw; empty for no plot
    std::string language;              // of the texts, numbers and dates: "en" or "de"
};

/// The number of these samples whose names have characters outside Windows-1252; the report shows them as
/// "?".
[[nodiscard]] std::size_t CountUnprintable(evaluation::ColourSheet const& sheet,
                                           std::vector<std::size_t> const& samples);

/// Prints the report as one job. Texts are those of the group "ChartReport", and "FarbTexte" for names of
/// colours. The printer writes the user's name and the program's name on each page. False when the printer
/// refused the job, the user aborted it, or it failed.
bool PrintChartReport(kv::MyPrinter& printer, evaluation::ColourSheet const& sheet,
                      ReportOptions const& options);

}  // namespace report
