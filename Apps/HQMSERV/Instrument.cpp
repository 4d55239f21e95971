#include "Apps/HQMSERV/Instrument.h"

#include "Apps/files/Text.h"

namespace hqmserv {

namespace {

/// Ignores spelling ("UV-cut", "uvcut"). An empty text matches any.
bool Agree(std::string const& left, std::string const& right) {
    return left.empty() || right.empty() || files::Key(left) == files::Key(right);
}

}  // namespace

suite::DeviceIdentity Instrument::Identity() const {
    return {.name = "Replay",
            .serialNumber = "R-" + std::to_string(Patches()),
            .softwareVersion = Version,
            .type = suite::DeviceType::Spectrophotometer};
}

ServerStatus Instrument::MeasureWhite() noexcept {
    hasWhite_ = true;
    return ServerStatus::Done;
}

ServerStatus Instrument::Measure() noexcept {
    if (chart_.samples.empty()) return ServerStatus::NotReady;
    if (!hasWhite_) return ServerStatus::WhiteMissing;
    if (measured_ == chart_.samples.size()) return ServerStatus::EndOfChart;
    ++measured_;
    return ServerStatus::Done;
}

ServerStatus Instrument::Restart() noexcept {
    if (chart_.samples.empty()) return ServerStatus::NotReady;
    measured_ = 0;
    return ServerStatus::Done;
}

ServerStatus Instrument::Require(files::StatedConditions const& conditions) {
    auto& stated = chart_.stated;
    if (!Agree(conditions.measurementMode, stated.measurementMode) ||
        !Agree(conditions.filter, stated.filter) || !Agree(conditions.whiteBase, stated.whiteBase)) {
        return ServerStatus::Unsupported;
    }
    if (conditions.illuminant) stated.illuminant = conditions.illuminant;
    if (conditions.observer) stated.observer = conditions.observer;
    return ServerStatus::Done;
}

suite::MeasuredPatch Instrument::Last() const {
    files::Sample const& sample = chart_.samples.at(measured_ - 1);
    return {Measured(), sample.name, sample.spectrum};
}

}  // namespace hqmserv
