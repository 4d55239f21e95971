// The suite's own data format for measurements: a keyed text file with the version head, a title
// "Measurement" with what is known of the measurement, and a title "Sample" for each patch.
#pragma once

#include "Apps/files/MeasurementFile.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace files {

/// A file that cannot be written whole. what() is one line: "FILE: cannot be written: REASON".
class WriteError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Whether the text's first line is the title that such a file begins with.
[[nodiscard]] bool IsDataFile(std::string_view text) noexcept;

/// Whether a text (UTF-8) comes back from a data file as it was: all its characters are in Windows-1252, and
/// none is "^", which the format takes for the start of an escape.
[[nodiscard]] bool SurvivesDataFile(std::string_view text);

/// Writes all samples; `path` is UTF-8. Reflectances above 2e-7 come back to the last bit, L*a*b* to 4
/// decimals. A text that does not survive (see above) is written all the same, with "?" for characters
/// outside the code page. An existing file is replaced by a whole new one with its permissions, or stays; of
/// a symbolic link, that is the file that it stands for. The service kv::AppName must exist: the head names
/// the application. Throws WriteError.
void WriteDataFile(MeasurementFile const& file, std::string const& path);

/// Reads the bytes of a file; `name` stands for it in messages. Throws ReadError.
[[nodiscard]] MeasurementFile ReadDataFile(std::string_view bytes, std::string const& name);

}  // namespace files
