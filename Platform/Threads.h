// Threads: what std::thread lacks, priorities and termination from outside.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// The thread priority: normal, one step below and one above.
enum class Priority : int { Low = -1, Normal = 0, High = 1 };

/// A running thread.
class NativeThread {
  public:
    /// Starts the routine; returns null if the system refuses.
    [[nodiscard]] static std::unique_ptr<NativeThread> Start(std::function<unsigned()> routine);
    NativeThread(NativeThread const&) = delete;
    NativeThread& operator=(NativeThread const&) = delete;
    /// Detaches from the thread, which keeps running.
    ~NativeThread();

    /// Returns false if the system refuses; raising a priority may need a privilege.
    bool SetPriority(Priority priority) noexcept;
    [[nodiscard]] Priority GetPriority() const noexcept;

    /// Waits until the routine has ended, but not longer than `limit`; returns whether it has.
    bool WaitForEnd(std::chrono::milliseconds limit);

    /// Ends the thread from outside, without waiting for it. Windows ends it at any point. POSIX cannot do so
    /// safely: the thread ends at its next cancellation point (a blocking system call, or
    /// `pthread_testcancel`), with its stack unwound; a thread that reaches none continues. A routine that
    /// may be killed must let the unwinding pass: no `catch (...)` that does not rethrow, and no blocking
    /// call in a `noexcept` function.
    void Kill() noexcept;

  private:
    struct State;
    explicit NativeThread(std::unique_ptr<State> state) noexcept;
    std::unique_ptr<State> state_;
};

}  // namespace platform
