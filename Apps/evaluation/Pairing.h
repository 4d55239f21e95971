// Pairing: matches the samples of two files.
#pragma once

#include "Apps/evaluation/Remark.h"
#include "Apps/files/MeasurementFile.h"

#include <cstddef>
#include <span>
#include <vector>

namespace evaluation {

/// The indices of a sample of the first file and a standard of the second.
struct IndexPair {
    std::size_t sample;
    std::size_t standard;
};

/// Matches the chosen samples with the standards of the same name; duplicate names match in file order, with
/// a warning. Warns of samples without a match and, if `chosen` is the whole file, of standards without one.
/// Throws InputError if nothing matches.
[[nodiscard]] std::vector<IndexPair> PairByName(files::MeasurementFile const& samples,
                                                std::span<std::size_t const> chosen,
                                                files::MeasurementFile const& standards, Remarks& remarks);

}  // namespace evaluation
