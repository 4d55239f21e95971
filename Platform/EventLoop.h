// EventLoop: the waiting of a program without a display. It handles one event of the system at a time: a
// window message on Windows, a step of dynamic data exchange elsewhere.
//
// All operations except `Wake` belong to one thread, the one that calls them first.
#pragma once

#include <chrono>

namespace platform {

class EventLoop {
  public:
    /// As the limit of `Wait`: no timeout.
    static constexpr std::chrono::milliseconds Forever{-1};

    /// Handles at most one pending event, which includes at most one DDE transaction. Returns false if no
    /// event was pending.
    static bool DispatchOne();

    /// Blocks until an event is pending, the limit has passed or `Wake` is called; a call of `Wake` since the
    /// last wait counts. Uses no processor time.
    static void Wait(std::chrono::milliseconds limit);

    /// Ends the current wait, or else the next one. May be called from any thread.
    static void Wake() noexcept;

    /// Returns a file descriptor that is readable while `DispatchOne` has an event to handle, for another
    /// event loop to watch; -1 on Windows, where every loop dispatches window messages. When the descriptor
    /// is readable, that loop must call `DispatchOne` until it returns false.
    [[nodiscard]] static int Descriptor();
};

}  // namespace platform
