// SampleNames: finds the samples that an argument means.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

/// Whether the text matches a pattern in which "*" stands for any text and "?" for one code point.
[[nodiscard]] bool MatchesGlob(std::string_view text, std::string_view pattern) noexcept;

/// Whether a sample has this name, or the name is "#" and a number that the file has.
[[nodiscard]] bool HasSample(files::MeasurementFile const& file, std::string_view name);

/// The index of the sample of this name, or of "#3", the third. Warns when several have the name and takes
/// the first. Throws Unusable with the names that come near.
[[nodiscard]] std::size_t FindSample(files::MeasurementFile const& file, std::string_view name,
                                     Messages& messages);

/// The indices of the samples that the choices mean, in the order of the file; all for no choice. A choice is
/// a name, a pattern, "#3", or several of these with commas between them. Throws Unusable for one that means
/// no sample.
[[nodiscard]] std::vector<std::size_t> ChooseSamples(files::MeasurementFile const& file,
                                                     std::vector<std::string> const& choices);

}  // namespace kvcolor
