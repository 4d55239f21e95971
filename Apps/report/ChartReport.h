// ChartReport: a measured chart on paper, as it is handed to a customer: what was measured under which
// conditions, the spectra of some samples, and a table of all of them with their difference to a standard.
#pragma once

#include "Apps/report/ReportData.h"
#include "KVUtils/Source/printing/MyPrinter.h"

namespace report {

/// Writes the report through the printer, as one job. The conditions are those in force in `CMetry`; the
/// texts those of the group "ChartReport" and, for names of colours, "FarbTexte". The head line's user and
/// the foot note's program are the printer's matter. False when the printer refused the job, the person has
/// aborted it, or it did not arrive.
bool PrintChartReport(kv::MyPrinter& printer, measurements::MeasurementFile const& file,
                      ReportOptions const& options);

}  // namespace report
