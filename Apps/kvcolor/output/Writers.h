// Writers: the three forms of a report. A form for people rounds; the two for programs give every digit that
// the value holds, always with ".".
#pragma once

#include "Apps/kvcolor/output/Answer.h"
#include "Apps/kvcolor/output/Swatch.h"

#include <string>

namespace kvcolor {

/// Aligned columns of at most 100 code points a line, under a line with the command and its conditions.
[[nodiscard]] std::string WriteTable(Report const& report, ColourDepth depth);

/// The first table as CSV (RFC 4180), with a column for each condition behind those of the table. What has no
/// value is empty.
[[nodiscard]] std::string WriteCsv(Report const& report);

/// All tables as one JSON object (RFC 8259). What has no value is null.
[[nodiscard]] std::string WriteJson(Report const& report);

}  // namespace kvcolor
