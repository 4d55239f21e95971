// ExportFile: writing a data file of the suite, with what a person is told about it.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <string>

namespace kvcolor {

/// Throws Unusable when there is a file of this name.
void CheckIsNew(std::string const& path);

/// Writes the file, warns of names that it cannot hold, and notes the count. Throws files::WriteError.
void WriteExport(files::MeasurementFile const& file, std::string const& path, Messages& messages);

}  // namespace kvcolor
