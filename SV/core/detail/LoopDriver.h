// LoopDriver: what the event loop takes events from and waits in. The platform's own, unless a backend brings
// a loop that has windows too.
#pragma once

#include <chrono>

namespace sv::detail {

class LoopDriver {
  public:
    /// Handles what is pending, of which at most one DDE transaction, and that before anything that may run
    /// the loop again. False when nothing was pending.
    virtual bool DispatchOne() = 0;
    /// Returns when an event was or can be handled, the time is up (never, below 0) or `Wake` was called,
    /// also when that was before. Takes no processor time meanwhile.
    virtual void Wait(std::chrono::milliseconds limit) = 0;
    /// From any thread.
    virtual void Wake() noexcept = 0;
    /// Shows or takes away the pointer of waiting.
    virtual void ShowWaiting(bool waiting) = 0;

  protected:
    ~LoopDriver() = default;
};

/// Installs a driver that lives as long as the program; null for the platform's own.
void InstallLoopDriver(LoopDriver* loop) noexcept;

}  // namespace sv::detail
