// sv::Application: the event loop and the other state that a program has once.
//
// The loop belongs to the main thread. It dispatches system events, messages of other programs among them,
// delivers user events in the order they were posted and, when nothing is pending, runs the idle handlers.
// Between two deliveries of posted user events it accepts at most one message of another program.
#pragma once

#include "SV/core/Link.h"

namespace sv {

class Window;

class Application {
  public:
    using UserEventHdl = void (*)(unsigned long id, void* data);

    Application() = delete;

    /// Runs the loop until `Quit` is called. A `Quit` before the call ends it at once.
    static void Execute();
    /// Ends `Execute` when the current handler returns. Thread-safe.
    static void Quit() noexcept;
    /// Whether `Execute` is running; true in any handler that it calls.
    [[nodiscard]] static bool IsInExecute() noexcept { return executing_; }

    /// Runs one turn of the loop, for a handler that has to wait: handles what is pending or, when nothing
    /// is, waits a few milliseconds at most for the next event.
    static void Reschedule();

    /// Makes the loop call the user event handler with these values. Thread-safe.
    static void PostUserEvent(unsigned long id, void* data);
    /// Sets the user event handler; with null, user events are dropped.
    static void SetUserEventHdl(UserEventHdl handler) noexcept { userEventHdl_ = handler; }

    /// Makes the loop call the handler, with null as the sender, whenever nothing is pending: lower priority
    /// numbers first, equal ones in the order of insertion. A handler returns 0 if it had nothing to do; when
    /// all do, the loop sleeps until the next event. A nested turn skips a handler that is running.
    static void InsertIdleHdl(Link const& handler, unsigned short priority);
    /// Removes the first handler equal to this one; does nothing if there is none.
    static void RemoveIdleHdl(Link const& handler);

    /// Shows or hides the wait cursor. This is a state, not a count: one `Wait(false)` ends any number of
    /// `Wait(true)`.
    static void Wait(bool wait);
    [[nodiscard]] static bool IsWait() noexcept { return waiting_; }

    /// The main window, which is the parent of boxes that name none; may be null. Not owned.
    [[nodiscard]] static Window* GetAppWindow() noexcept { return appWindow_; }
    static void SetAppWindow(Window* window) noexcept { appWindow_ = window; }

  private:
    static Window* appWindow_;
    static UserEventHdl userEventHdl_;
    static bool executing_;
    static bool waiting_;
};

}  // namespace sv
