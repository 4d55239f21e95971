// LoopDriver: the source of the event loop's events. The platform's own, unless a backend with windows
// installs another.
#pragma once

#include <chrono>

namespace sv::detail {

class LoopDriver {
  public:
    /// Handles what is pending: at most one DDE transaction, and that before anything that may run the loop
    /// again. Returns false if nothing was pending.
    virtual bool DispatchOne() = 0;
    /// Blocks until an event was or can be handled, the time is up (never, if negative) or `Wake` is called,
    /// also if that was before.
    virtual void Wait(std::chrono::milliseconds limit) = 0;
    /// Thread-safe.
    virtual void Wake() noexcept = 0;
    /// Shows or hides the wait cursor.
    virtual void ShowWaiting(bool waiting) = 0;

  protected:
    ~LoopDriver() = default;
};

/// Installs a driver, which must exist until the program exits; null restores the platform's own.
void InstallLoopDriver(LoopDriver* loop) noexcept;

}  // namespace sv::detail
