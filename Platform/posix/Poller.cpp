#include "Platform/posix/Poller.h"

#include <algorithm>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace platform::detail {

namespace {

// Buffered frames of a conversation are handled without asking the system; it is asked after this many steps
// all the same, so that one conversation does not starve the others.
constexpr int StepsBetweenPolls = 32;

epoll_event EventOf(std::uint32_t events, Watcher* watcher) {
    epoll_event event{};
    event.events = events;
    event.data.ptr = watcher;
    return event;
}

}  // namespace

Poller& Poller::Instance() {
    static Poller& poller = *new Poller;  // NOLINT(cppcoreguidelines-owning-memory): see the header
    return poller;
}

Poller::Poller() : epoll_(epoll_create1(EPOLL_CLOEXEC)), wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    epoll_event event = EventOf(EPOLLIN, nullptr);
    epoll_ctl(epoll_, EPOLL_CTL_ADD, wakeUp_, &event);
}

bool Poller::Add(int descriptor, std::uint32_t events, Watcher& watcher) const {
    epoll_event event = EventOf(events, &watcher);
    return epoll_ctl(epoll_, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

void Poller::Change(int descriptor, std::uint32_t events, Watcher& watcher) const {
    epoll_event event = EventOf(events, &watcher);
    epoll_ctl(epoll_, EPOLL_CTL_MOD, descriptor, &event);
}

void Poller::Remove(int descriptor, Watcher& watcher) {
    epoll_ctl(epoll_, EPOLL_CTL_DEL, descriptor, nullptr);
    if (!watcher.queued_) return;
    std::erase(queue_, &watcher);
    watcher.queued_ = false;
}

void Poller::Append(Watcher& watcher, std::uint32_t ready) {
    watcher.ready_ |= ready;
    if (watcher.queued_) return;
    watcher.queued_ = true;
    queue_.push_back(&watcher);
}

void Poller::Poll(int limitMs) {
    stepsSincePoll_ = 0;
    int const count = epoll_wait(epoll_, events_.data(), static_cast<int>(events_.size()), limitMs);
    for (int i = 0; i < count; ++i) {
        epoll_event const& event = events_[static_cast<std::size_t>(i)];
        if (event.data.ptr != nullptr) {
            Append(*static_cast<Watcher*>(event.data.ptr), event.events);
        } else {
            std::uint64_t wakes = 0;
            [[maybe_unused]] ssize_t const got = read(wakeUp_, &wakes, sizeof wakes);
        }
    }
}

bool Poller::DispatchOne() {
    if (!HasQueued() || stepsSincePoll_ >= StepsBetweenPolls) Poll(0);
    while (HasQueued()) {
        Watcher* const watcher = queue_.front();
        queue_.pop_front();
        watcher->queued_ = false;
        ++stepsSincePoll_;
        if (watcher->Step(std::exchange(watcher->ready_, 0))) return true;
    }
    return false;
}

void Poller::Wait(std::chrono::milliseconds limit) {
    if (HasQueued()) return;
    // Either this thread sees `woken_`, or the waking thread sees `waiting_`.
    waiting_ = true;
    if (!woken_)
        Poll(limit.count() < 0 ? -1 : static_cast<int>(std::min<std::int64_t>(limit.count(), 1 << 30)));
    waiting_ = false;
    // An exchange rather than a store, to synchronise with the waking thread: what it did before `Wake` is
    // visible after this.
    woken_.exchange(false);
}

void Poller::Wake() noexcept {
    woken_ = true;
    if (!waiting_) return;
    std::uint64_t const one = 1;
    [[maybe_unused]] ssize_t const put = write(wakeUp_, &one, sizeof one);
}

}  // namespace platform::detail
