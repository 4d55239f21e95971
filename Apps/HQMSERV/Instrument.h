// Instrument: a spectrophotometer that replays a measured chart. Like a real one, it must be calibrated on
// white first; each measurement then takes the next patch.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/suite/ServerPayloads.h"

#include <cstddef>

namespace hqmserv {

inline constexpr char const* Version = "0.1.0";

using suite::ServerStatus;

class Instrument {
  public:
    /// Has nothing to measure.
    Instrument() = default;
    explicit Instrument(files::MeasurementFile chart) : chart_(std::move(chart)) {}

    /// The serial number depends on the chart alone.
    [[nodiscard]] suite::DeviceIdentity Identity() const;

    [[nodiscard]] ServerStatus MeasureWhite() noexcept;
    /// Measures the next patch.
    [[nodiscard]] ServerStatus Measure() noexcept;
    /// Starts the chart again.
    [[nodiscard]] ServerStatus Restart() noexcept;

    /// Accepts the conditions if the chart was measured under them; what one side does not state matches
    /// anything. Illuminant and observer are only stored, since spectra do not depend on them.
    [[nodiscard]] ServerStatus Require(files::StatedConditions const& conditions);
    [[nodiscard]] files::StatedConditions const& Conditions() const noexcept { return chart_.stated; }

    /// The number of patches, and of those measured so far.
    [[nodiscard]] long Patches() const noexcept { return static_cast<long>(chart_.samples.size()); }
    [[nodiscard]] long Measured() const noexcept { return static_cast<long>(measured_); }
    [[nodiscard]] bool HasWhite() const noexcept { return hasWhite_; }
    /// The last measurement. Call only after one.
    [[nodiscard]] suite::MeasuredPatch Last() const;

  private:
    files::MeasurementFile chart_;
    std::size_t measured_ = 0;
    bool hasWhite_ = false;
};

}  // namespace hqmserv
