// StatedCheck: compares the conditions stated by a file with those requested.
#pragma once

#include "Apps/evaluation/Remark.h"
#include "Apps/files/MeasurementFile.h"

#include <optional>
#include <string>
#include <vector>

namespace evaluation {

/// The conditions requested; empty fields request nothing.
struct RequestedConditions {
    std::vector<kv::IllumClass> illuminants;
    std::optional<kv::ObserverClass> observer;
    std::string measurementMode;  // "M0" to "M3"
    std::string filter;           // as returned by CanonicalFilter
};

/// Warns of each statement that differs and notes each request that the file does not state.
[[nodiscard]] Remarks CheckStated(files::MeasurementFile const& file, RequestedConditions const& requested);
/// Warns if two files state different conditions of measurement.
[[nodiscard]] Remarks CheckStatedAlike(files::MeasurementFile const& first,
                                       files::MeasurementFile const& second);

}  // namespace evaluation
