// Threads: what std::thread leaves out, priorities and an end from outside.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// The system's priority: normal, one below and one above.
enum class Priority : int { Low = -1, Normal = 0, High = 1 };

/// A running thread.
class NativeThread {
  public:
    /// Starts the routine; null when the system refuses.
    [[nodiscard]] static std::unique_ptr<NativeThread> Start(std::function<unsigned()> routine);
    NativeThread(NativeThread const&) = delete;
    NativeThread& operator=(NativeThread const&) = delete;
    /// Lets go of the thread, which runs on if it still does.
    ~NativeThread();

    /// False when the system refuses; raising a priority may need a privilege.
    bool SetPriority(Priority priority) noexcept;
    [[nodiscard]] Priority GetPriority() const noexcept;

    /// Waits for the routine's end, at most so long; true once it has ended.
    bool WaitForEnd(std::chrono::milliseconds limit);

    /// Ends the thread from outside. Windows ends it wherever it is. A POSIX thread cannot be ended at any
    /// point without harm to what it holds: there it ends at its next cancellation point (a blocking call of
    /// the system, or `pthread_testcancel`), its stack being unwound; one that reaches none goes on. A
    /// routine that may be ended so must let the unwinding pass: no `catch (...)` that does not throw again,
    /// and no waiting in a `noexcept` function. Does not wait for the end, on either system.
    void Kill() noexcept;

  private:
    struct State;
    explicit NativeThread(std::unique_ptr<State> state) noexcept;
    std::unique_ptr<State> state_;
};

}  // namespace platform
