// Pairing: which sample is held against which standard.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/kvcolor/output/Messages.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kvcolor {

/// Indices of a sample of the first file and a standard of the second.
struct IndexPair {
    std::size_t sample;
    std::size_t standard;
};

/// Pairs the chosen samples with the standards of the same name; samples of one name go in the order of the
/// files, with a warning. Notes the samples without a standard and, if `chosen` is the whole file, the
/// standards without a sample. Throws Unusable when nothing pairs.
[[nodiscard]] std::vector<IndexPair> PairByName(files::MeasurementFile const& samples,
                                                std::span<std::size_t const> chosen,
                                                files::MeasurementFile const& standards, Messages& messages);

}  // namespace kvcolor
