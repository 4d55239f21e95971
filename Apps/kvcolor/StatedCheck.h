// StatedCheck: holds what a file states of its measurement against what is asked for.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvcolor {

/// What a command computes with; empty fields ask for nothing.
struct AskedConditions {
    std::vector<kv::IllumClass> illuminants;
    std::optional<kv::ObserverClass> observer;
    std::string measurementMode;  // "M0" to "M3"
    std::string filter;           // as CanonicalFilter has it
};

/// "M0" to "M3", in any case. Throws Unusable.
[[nodiscard]] std::string ParseMeasurementMode(std::string_view text);

/// One spelling for the ways in which files write a physical filter: "No", "Pol", "UV"; other texts stay.
[[nodiscard]] std::string CanonicalFilter(std::string_view text);
/// One of the library's filter names ("No", "Pol", "D65", "Repro", ...), in any case. Throws Unusable.
[[nodiscard]] std::string ParseFilter(std::string_view text);

/// Warns of each statement that differs, naming both; notes what is asked for and not stated.
void CheckStated(files::MeasurementFile const& file, AskedConditions const& asked, Messages& messages);
/// Warns where the two files state different conditions of measurement.
void CheckStatedAlike(files::MeasurementFile const& first, files::MeasurementFile const& second,
                      Messages& messages);

}  // namespace kvcolor
