// Reads CGATS and ISO 28178 text: keyword lines, the field names of BEGIN_DATA_FORMAT, the rows of
// BEGIN_DATA.
#pragma once

#include "Apps/files/MeasurementFile.h"

#include <string_view>

namespace files {

/// Returns whether a line starts with BEGIN_DATA or BEGIN_DATA_FORMAT. The first line may be any word.
[[nodiscard]] bool IsCgats(std::string_view text) noexcept;

/// Reads one table of a text from CheckedText into `file`, whose path is set. Warns of further tables and of
/// a table that is incomplete or transmission. Throws ReadError, also for emission.
void ReadCgats(std::string_view text, ReadOptions const& options, MeasurementFile& file);

}  // namespace files
