// SampleNames: finds samples by name, number or pattern.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

/// Matches a pattern in which "*" matches any text and "?" one code point.
[[nodiscard]] bool MatchesGlob(std::string_view text, std::string_view pattern) noexcept;

/// Returns whether a sample has this name or, for "#3", this number.
[[nodiscard]] bool HasSample(files::MeasurementFile const& file, std::string_view name);

/// Returns the index of the sample with this name or, for "#3", this number. If several have the name, warns
/// and uses the first. Throws evaluation::InputError that suggests similar names.
[[nodiscard]] std::size_t FindSample(files::MeasurementFile const& file, std::string_view name,
                                     Messages& messages);

/// Returns the indices of the chosen samples in file order; all if there is no choice. A choice is a name, a
/// pattern, "#3", or several of these separated by commas. Throws evaluation::InputError if one matches
/// nothing.
[[nodiscard]] std::vector<std::size_t> ChooseSamples(files::MeasurementFile const& file,
                                                     std::vector<std::string> const& choices);

}  // namespace kvcolor
