// Writers: the three formats of an answer, written row by row. The table rounds; CSV and JSON contain all
// digits, always with
// ".".
#pragma once

#include "Apps/kvcolor/output/Answer.h"
#include "Apps/kvcolor/output/Swatch.h"

#include <iosfwd>

namespace kvcolor {

/// Writes a line with the command and its conditions, then aligned columns in lines of at most 100
/// terminal columns.
void WriteTable(std::ostream& out, Answer const& answer, ColourDepth depth);

/// Writes the first table as CSV, with lines that end in LF, followed by a column for each condition. A
/// missing value is empty.
void WriteCsv(std::ostream& out, Answer const& answer);

/// Writes all tables as one JSON object (RFC 8259). A missing value is null.
void WriteJson(std::ostream& out, Answer const& answer);

}  // namespace kvcolor
