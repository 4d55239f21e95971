// Poller: the descriptors that the event loop watches, and the queue of those that have something to do.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <sys/epoll.h>
#include <vector>

namespace platform::detail {

/// Stands behind a watched descriptor.
class Watcher {
  public:
    Watcher() = default;
    Watcher(Watcher const&) = delete;
    Watcher& operator=(Watcher const&) = delete;
    virtual ~Watcher() = default;

    /// Does one step. `ready` holds the EPOLL bits that are known, 0 when the watcher itself asked to be
    /// called again. True when the step was an event of the program: nothing else is done in this turn of the
    /// loop then.
    virtual bool Step(std::uint32_t ready) = 0;

  private:
    friend class Poller;

    bool queued_ = false;
    std::uint32_t ready_ = 0;
};

/// One per process. All operations but `Wake` belong to the loop's thread.
class Poller {
  public:
    /// Made at the first call and never destroyed: threads may wake it while the program ends.
    static Poller& Instance();

    Poller(Poller const&) = delete;
    Poller& operator=(Poller const&) = delete;

    /// Watches a descriptor for `events` (EPOLL bits). False when the system refuses.
    [[nodiscard]] bool Add(int descriptor, std::uint32_t events, Watcher& watcher) const;
    void Change(int descriptor, std::uint32_t events, Watcher& watcher) const;
    /// Must come before the descriptor is closed.
    void Remove(int descriptor, Watcher& watcher);

    /// Has the watcher called again without asking the system.
    void CallAgain(Watcher& watcher) { Append(watcher, 0); }

    /// Steps watchers until one had an event of the program; false when none had.
    bool DispatchOne();
    /// A signal ends the wait too.
    void Wait(std::chrono::milliseconds limit);
    void Wake() noexcept;

    /// The descriptor that is readable while a watched one is ready.
    [[nodiscard]] int Descriptor() const noexcept { return epoll_; }

  private:
    Poller();
    ~Poller() = default;

    // Asks the system and appends what is ready to the queue.
    void Poll(int limitMs);
    void Append(Watcher& watcher, std::uint32_t ready);
    [[nodiscard]] bool HasQueued() const noexcept { return first_ < queue_.size(); }

    int epoll_ = -1;
    int wakeUp_ = -1;
    // Null where a watcher was removed.
    std::vector<Watcher*> queue_;
    std::size_t first_ = 0;
    int stepsSincePoll_ = 0;
    std::array<epoll_event, 64> events_{};
    std::atomic<bool> woken_ = false;
    std::atomic<bool> waiting_ = false;
};

}  // namespace platform::detail
