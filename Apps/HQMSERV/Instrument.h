// Instrument: a spectrophotometer that plays a chart which was measured before. As with a real one, its white
// is measured first; each measurement then takes the next patch of the chart.
#pragma once

#include "Apps/files/MeasurementFile.h"
#include "Apps/suite/ServerPayloads.h"

#include <cstddef>

namespace hqmserv {

inline constexpr char const* Version = "0.1.0";

using suite::ServerStatus;

class Instrument {
  public:
    /// With nothing to measure.
    Instrument() = default;
    explicit Instrument(files::MeasurementFile chart) : chart_(std::move(chart)) {}

    /// One and the same chart is played by one and the same instrument.
    [[nodiscard]] suite::DeviceIdentity Identity() const;

    [[nodiscard]] ServerStatus MeasureWhite() noexcept;
    /// Takes the next patch.
    [[nodiscard]] ServerStatus Measure() noexcept;
    /// Puts the instrument back on the first patch.
    [[nodiscard]] ServerStatus Restart() noexcept;

    /// Accepts the conditions when the chart was measured under them; what either side does not state agrees
    /// with everything. Illuminant and observer are
    /// kept for whoever asks: spectra do not depend on them.
    [[nodiscard]] ServerStatus Require(files::StatedConditions const& conditions);
    [[nodiscard]] files::StatedConditions const& Conditions() const noexcept { return chart_.stated; }

    /// How many patches the chart has, and how many of them were measured.
    [[nodiscard]] long Patches() const noexcept { return static_cast<long>(chart_.samples.size()); }
    [[nodiscard]] long Measured() const noexcept { return static_cast<long>(measured_); }
    [[nodiscard]] bool HasWhite() const noexcept { return hasWhite_; }
    /// The last measurement; there must have been one.
    [[nodiscard]] suite::MeasuredPatch Last() const;

  private:
    files::MeasurementFile chart_;
    std::size_t measured_ = 0;
    bool hasWhite_ = false;
};

}  // namespace hqmserv
