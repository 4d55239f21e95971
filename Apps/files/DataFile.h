// Reads and writes the suite's data format for measurements: a keyed text file with a version header, a
// section "Measurement" with the conditions, and a section "Sample" for each patch.
#pragma once

#include "Apps/files/MeasurementFile.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace files {

/// A file that cannot be written. what() is one line: "FILE: cannot be written: REASON".
class WriteError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Returns whether the first line is that of a data file.
[[nodiscard]] bool IsDataFile(std::string_view text) noexcept;

/// Returns whether a data file can hold a text (UTF-8): all characters are in Windows-1252, and none is "^",
/// which starts an escape in the format.
[[nodiscard]] bool IsRepresentable(std::string_view text);

/// Writes all samples; `path` is UTF-8. Reflectances are preserved to the last bit, L*a*b* to 4
/// decimals. Whatever is written can be read: the limits are the same. A text that is not representable is
/// written with "?" for characters outside the code page. An existing file (a symbolic link's target) is
/// replaced atomically and keeps its permissions. Requires the service kv::AppName: the header names the
/// application. Throws WriteError.
void WriteDataFile(MeasurementFile const& file, std::string const& path);

/// Parses the bytes of a file; messages call it `name`. Throws ReadError.
[[nodiscard]] MeasurementFile ReadDataFile(std::string_view bytes, std::string const& name);

}  // namespace files
