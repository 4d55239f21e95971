// Progress: shows how far a long operation is.
#pragma once

#include "Apps/kvcolor/Environment.h"

#include <cstddef>
#include <string>

namespace kvcolor {

/// Draws one line on standard error if that is a terminal and the operation takes more than a second; erases
/// it at the end.
class Progress {
  public:
    Progress(Environment const& environment, std::string what, std::size_t steps);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// Counts one step as done.
    void Step();

  private:
    Environment const& environment_;
    std::string what_;
    std::size_t steps_;
    std::size_t done_ = 0;
    Environment::Clock::time_point nextDraw_;
    bool isDrawn_ = false;
};

}  // namespace kvcolor
