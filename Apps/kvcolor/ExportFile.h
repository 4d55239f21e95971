// ExportFile: writes a data file of the suite, with messages for the user.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <string>

namespace kvcolor {

/// Writes the file, warns of names that it cannot represent, and notes the count. Throws files::WriteError.
void WriteExport(files::MeasurementFile const& file, std::string const& path, Messages& messages);

}  // namespace kvcolor
