// Writers: the three formats of an answer. The table rounds; CSV and JSON contain all digits, always with
// ".".
#pragma once

#include "Apps/kvcolor/output/Answer.h"
#include "Apps/kvcolor/output/Swatch.h"

#include <string>

namespace kvcolor {

/// Writes a line with the command and its conditions, then aligned columns in lines of at most 100 code
/// points.
[[nodiscard]] std::string WriteTable(Answer const& answer, ColourDepth depth);

/// Writes the first table as CSV (RFC 4180), followed by a column for each condition. A missing value is
/// empty.
[[nodiscard]] std::string WriteCsv(Answer const& answer);

/// Writes all tables as one JSON object (RFC 8259). A missing value is null.
[[nodiscard]] std::string WriteJson(Answer const& answer);

}  // namespace kvcolor
