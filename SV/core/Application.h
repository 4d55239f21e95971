// sv::Application: what there is once in a program, its event loop first of all.
//
// The loop belongs to the main thread. It hands on what the system has for the program (messages of other
// programs among it), user events in the order they were posted, and, when nothing is pending, runs the idle
// handlers. Between two deliveries of posted user events it takes in at most one message of another program.
#pragma once

#include "SV/core/Link.h"

namespace sv {

class Window;

class Application {
  public:
    using UserEventHdl = void (*)(unsigned long id, void* data);

    Application() = delete;

    /// Runs the loop until `Quit`; one that was called before counts.
    static void Execute();
    /// Ends `Execute` when the handler that runs returns. From any thread.
    static void Quit() noexcept;
    /// Whether `Execute` runs, in any handler below it.
    [[nodiscard]] static bool IsInExecute() noexcept { return executing_; }

    /// One turn of the loop, for whoever waits inside a handler: handles what is pending; when nothing is,
    /// waits for the next event, a few milliseconds at most.
    static void Reschedule();

    /// Has the user event handler called with these values by the loop. From any thread.
    static void PostUserEvent(unsigned long id, void* data);
    /// Null for none: user events are then taken and dropped.
    static void SetUserEventHdl(UserEventHdl handler) noexcept { userEventHdl_ = handler; }

    /// Has the handler called, with null as sender, whenever nothing is pending, those of a lower priority
    /// number first, equal ones in the order of their insertion. A handler that answers 0 had nothing to do;
    /// when all answer so the loop sleeps until the next event. While a handler runs, a nested turn passes
    /// over it.
    static void InsertIdleHdl(Link const& handler, unsigned short priority);
    /// Does nothing for a handler that is not there.
    static void RemoveIdleHdl(Link const& handler);

    /// Shows or takes away the pointer of waiting. A state, not a count: one false ends any number of true.
    static void Wait(bool wait);
    [[nodiscard]] static bool IsWait() noexcept { return waiting_; }

    /// The application's main window, which boxes stand over; null when there is none. Not owned.
    [[nodiscard]] static Window* GetAppWindow() noexcept { return appWindow_; }
    static void SetAppWindow(Window* window) noexcept { appWindow_ = window; }

  private:
    static Window* appWindow_;
    static UserEventHdl userEventHdl_;
    static bool executing_;
    static bool waiting_;
};

}  // namespace sv
