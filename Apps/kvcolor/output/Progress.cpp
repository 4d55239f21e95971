#include "Apps/kvcolor/output/Progress.h"

#include <utility>

namespace kvcolor {

namespace {

using namespace std::chrono_literals;

constexpr auto Delay = 1s;
constexpr auto Interval = 100ms;

}  // namespace

Progress::Progress(Environment const& environment, std::string what, std::size_t steps)
    : environment_(environment),
      what_(std::move(what)),
      steps_(steps),
      nextDraw_(environment.now() + Delay) {}

Progress::~Progress() {
    if (isDrawn_) environment_.err << "\r\x1B[K" << std::flush;
}

void Progress::Step() {
    ++done_;
    if (!environment_.errIsTerminal) return;
    auto const now = environment_.now();
    if (now <= nextDraw_) return;
    nextDraw_ = now + Interval;
    isDrawn_ = true;
    environment_.err << "\r\x1B[K" << what_ << ": " << std::to_string(done_) << " of "
                     << std::to_string(steps_) << " (" << std::to_string(100 * done_ / steps_) << " %)"
                     << std::flush;
}

}  // namespace kvcolor
