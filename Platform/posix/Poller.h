// Poller: watches the event loop's descriptors and queues their watchers.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <sys/epoll.h>

namespace platform::detail {

/// Handles the events of a watched descriptor.
class Watcher {
  public:
    Watcher() = default;
    Watcher(Watcher const&) = delete;
    Watcher& operator=(Watcher const&) = delete;
    virtual ~Watcher() = default;

    /// Handles one step. `ready` holds the reported EPOLL bits, 0 if the watcher itself asked to be called
    /// again. Returns true if the step was an event of the program, which ends the turn of the loop.
    virtual bool Step(std::uint32_t ready) = 0;

  private:
    friend class Poller;

    bool queued_ = false;
    std::uint32_t ready_ = 0;
};

/// The only instance per process. All operations except `Wake` belong to the loop's thread.
class Poller {
  public:
    /// Created at the first call and never destroyed: threads may wake the loop while the program exits.
    static Poller& Instance();

    Poller(Poller const&) = delete;
    Poller& operator=(Poller const&) = delete;

    /// Watches a descriptor for `events` (EPOLL bits). Returns false if the system refuses.
    [[nodiscard]] bool Add(int descriptor, std::uint32_t events, Watcher& watcher) const;
    void Change(int descriptor, std::uint32_t events, Watcher& watcher) const;
    /// Must be called before the descriptor is closed.
    void Remove(int descriptor, Watcher& watcher);

    /// Calls the watcher again without asking the system.
    void CallAgain(Watcher& watcher) { Append(watcher, 0); }

    /// Steps watchers until one reports an event of the program; returns false if none does.
    bool DispatchOne();
    /// A signal also ends the wait.
    void Wait(std::chrono::milliseconds limit);
    void Wake() noexcept;

    /// Returns a descriptor that is readable while a watched one is ready.
    [[nodiscard]] int Descriptor() const noexcept { return epoll_; }

  private:
    Poller();
    ~Poller() = default;

    // Polls the system and queues the watchers that are ready.
    void Poll(int limitMs);
    void Append(Watcher& watcher, std::uint32_t ready);
    [[nodiscard]] bool HasQueued() const noexcept { return !queue_.empty(); }

    int epoll_ = -1;
    int wakeUp_ = -1;
    std::deque<Watcher*> queue_;
    int stepsSincePoll_ = 0;
    std::array<epoll_event, 64> events_{};
    std::atomic<bool> woken_ = false;
    std::atomic<bool> waiting_ = false;
};

}  // namespace platform::detail
