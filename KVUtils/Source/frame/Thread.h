// Thread: base class of a worker thread.
#pragma once

#include <atomic>
#include <memory>

namespace platform {
class NativeThread;
}

namespace kv {

/// Normal, or one step lower or higher.
enum class ThreadPriorityTYPE : int { Normal = 0, Low = 1, High = 2 };

namespace detail {

/// Starts and ends the thread. A base, so that the routine of an object that is destroyed before its thread
/// has called it is not a pure virtual function: by the time the thread is waited for, it is the empty one
/// here.
class ThreadBase {
  protected:
    virtual unsigned Run();

  public:
    explicit ThreadBase(ThreadPriorityTYPE priority) noexcept;
    /// Gives the thread 100 ms to return, then ends it like `KillThread`, and waits until it has ended. The
    /// members of a derived class are destroyed before, so if the routine uses them, the derived destructor
    /// must make it stop and wait for it. Must not be called from the thread itself.
    virtual ~ThreadBase();
    ThreadBase(ThreadBase const&) = delete;
    ThreadBase& operator=(ThreadBase const&) = delete;

    /// Starts the routine with the priority given at construction; does nothing if the system refuses. A
    /// thread started earlier keeps running, and must end before the object is destroyed.
    void StartThread();

    /// Terminates the thread, whatever it holds: locks stay locked and files open. Windows terminates it at
    /// once. On other systems that would break the process, so the thread is unwound at its next blocking
    /// system call; a routine that makes none runs until it returns. Does nothing after the routine has
    /// returned.
    void KillThread() noexcept;

    /// Changes the priority of the running thread only: the next start uses the one given at construction.
    void SetPriority(ThreadPriorityTYPE priority) noexcept;
    /// Asks the system; returns normal without a thread.
    [[nodiscard]] ThreadPriorityTYPE GetPriority() const noexcept;

  private:
    std::unique_ptr<platform::NativeThread> thread_;
    std::shared_ptr<std::atomic<bool>> hasReturned_;  // set by the routine, which shares it
    ThreadPriorityTYPE priority_;
};

}  // namespace detail

class Thread : public detail::ThreadBase {
  protected:
    /// Runs in the thread; the result is its exit code. Not called if the object is destroyed first.
    unsigned Run() override = 0;

  public:
    /// Stores the priority; does not start the thread.
    explicit Thread(ThreadPriorityTYPE priority) noexcept;
    ~Thread() override;
};

}  // namespace kv
