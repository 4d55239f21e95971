// EventLoop: what a program without a display waits in. One event of the system is taken at a time: a window
// message on Windows, a step of dynamic data exchange elsewhere.
//
// All operations but `Wake` belong to one thread, the one that calls them first.
#pragma once

#include <chrono>

namespace platform {

class EventLoop {
  public:
    /// As a time to wait: until something happens.
    static constexpr std::chrono::milliseconds Forever{-1};

    /// Handles at most one pending event, of which at most one DDE transaction. False when nothing was
    /// pending.
    static bool DispatchOne();

    /// Returns when an event is pending, the time is up or `Wake` was called, also when that was before.
    /// Takes no processor time meanwhile.
    static void Wait(std::chrono::milliseconds limit);

    /// Ends the wait that goes on, or the next one. From any thread.
    static void Wake() noexcept;

    /// For a foreign loop that has the program's waiting: a file descriptor that is readable while the system
    /// has an event for `DispatchOne`, -1 on Windows, where every loop takes window messages by itself. A
    /// loop that was woken by it calls `DispatchOne` until that answers false.
    [[nodiscard]] static int Descriptor();
};

}  // namespace platform
