// Thread: the base of a worker that runs beside the main thread.
#pragma once

#include "Platform/Threads.h"

#include <atomic>
#include <memory>

namespace kv {

/// Normal, or one step below or above.
enum class ThreadPriorityTYPE : int { Normal = 0, Low = 1, High = 2 };

class Thread {
  protected:
    /// What the thread does; the result is its exit code.
    virtual unsigned Run() = 0;

  public:
    /// Starts nothing yet.
    explicit Thread(ThreadPriorityTYPE priority) noexcept;
    /// Ends the thread as `KillThread` does, after a moment in which it may end by itself, and waits until it
    /// has ended. What a derived class holds is gone by then, so its own destructor has to tell a routine
    /// that uses it to stop, and wait. Not for the thread itself to call.
    virtual ~Thread();
    Thread(Thread const&) = delete;
    Thread& operator=(Thread const&) = delete;

    /// Starts the routine with the priority given at construction; does nothing when the system refuses. A
    /// thread that was started before runs on by itself, and has to end before the object does.
    void StartThread();

    /// Ends the thread from outside, with no regard for what it holds: locks stay locked, files open. Windows
    /// ends it wherever it is. Elsewhere nothing can be ended at any point without breaking the process, so
    /// it ends at its next blocking call of the system, its stack being unwound; a routine that makes none
    /// runs to its own end. Does nothing once the routine has returned.
    void KillThread() noexcept;

    /// Changes the running thread's priority only: the next start takes the one given at construction.
    void SetPriority(ThreadPriorityTYPE priority) noexcept;
    /// The system's answer; normal without a thread.
    [[nodiscard]] ThreadPriorityTYPE GetPriority() const noexcept;

  private:
    std::unique_ptr<platform::NativeThread> thread_;
    std::shared_ptr<std::atomic<bool>> hasReturned_;  // of that thread's routine; it knows it too
    ThreadPriorityTYPE priority_;
};

}  // namespace kv
