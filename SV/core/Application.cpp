#include "SV/core/Application.h"

#include "Platform/EventLoop.h"
#include "SV/core/detail/LoopDriver.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <mutex>
#include <utility>

namespace sv {

constinit Window* Application::appWindow_ = nullptr;
constinit Application::UserEventHdl Application::userEventHdl_ = nullptr;
constinit bool Application::executing_ = false;
constinit bool Application::waiting_ = false;

namespace {

using Milliseconds = std::chrono::milliseconds;

// The longest wait of Reschedule: the condition that its caller waits for may become true without an event.
constexpr Milliseconds RescheduleLimit{5};

struct UserEvent {
    unsigned long id = 0;
    void* data = nullptr;
};

// The posted events, numbered from 1 in the order they were posted.
class UserEventQueue {
  public:
    void Post(UserEvent event) {
        std::lock_guard const lock(mutex_);
        events_.push_back(event);
        lastPosted_.fetch_add(1, std::memory_order_release);
    }

    // Removes the next event; false if there is none.
    [[nodiscard]] bool Take(UserEvent& event) {
        if (taken_ == LastPosted()) return false;
        std::lock_guard const lock(mutex_);
        event = events_.front();
        events_.pop_front();
        ++taken_;
        return true;
    }

    [[nodiscard]] std::uint64_t LastPosted() const noexcept {
        return lastPosted_.load(std::memory_order_acquire);
    }
    // The number of the event that was taken last. Only for the main thread.
    [[nodiscard]] std::uint64_t LastTaken() const noexcept { return taken_; }

  private:
    std::mutex mutex_;
    std::deque<UserEvent> events_;
    std::uint64_t taken_ = 0;
    std::atomic<std::uint64_t> lastPosted_ = 0;
};

// The idle handlers in calling order. A handler may insert and remove handlers, itself included: one that is
// running stays in the list until it returns.
class IdleHandlers {
  public:
    void Insert(Link const& link, unsigned short priority) {
        list_.insert(std::ranges::upper_bound(list_, priority, {}, &Handler::priority), {link, priority});
    }

    void Remove(Link const& link) {
        auto const place = std::ranges::find_if(
            list_, [&](Handler const& handler) { return handler.link == link && !handler.isRemoved; });
        if (place == list_.end()) return;
        place->isRemoved = true;
        if (!place->isRunning) list_.erase(place);
    }

    // Calls each handler that is not running. False if none had anything to do.
    bool RunAll() {
        bool anyDid = false;
        for (auto place = list_.begin(); place != list_.end();) {
            if (place->isRunning) {
                ++place;
                continue;
            }
            Run const run(list_, place);
            anyDid = place->link.Call(nullptr) != 0 || anyDid;
        }
        return anyDid;
    }

  private:
    struct Handler {
        Link link;
        unsigned short priority = 0;
        bool isRunning = false;
        bool isRemoved = false;
    };
    using List = std::list<Handler>;

    // Marks a handler as running; at the end, by an exception too, goes on to the next one.
    class Run {
      public:
        Run(List& list, List::iterator& place) : list_(list), place_(place) { place->isRunning = true; }
        Run(Run const&) = delete;
        Run& operator=(Run const&) = delete;
        ~Run() {
            auto const ended = place_++;
            ended->isRunning = false;
            if (ended->isRemoved) list_.erase(ended);
        }

      private:
        List& list_;
        List::iterator& place_;
    };

    List list_;
};

// Never destroyed, since threads may post, and objects remove their handlers, while the program exits. Not
// constant-initialised either, since a mutex is not on every system.
UserEventQueue& UserEvents() {
    static UserEventQueue& queue = *new UserEventQueue;
    return queue;
}

IdleHandlers& Idlers() {
    static IdleHandlers& handlers = *new IdleHandlers;
    return handlers;
}

// The loop of a program without windows. Its destructor must do nothing, since threads may post while the
// program exits. NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class PlatformLoop final : public detail::LoopDriver {
  public:
    bool DispatchOne() override { return platform::EventLoop::DispatchOne(); }
    void Wait(Milliseconds limit) override { platform::EventLoop::Wait(limit); }
    void Wake() noexcept override { platform::EventLoop::Wake(); }
    void ShowWaiting(bool /*waiting*/) override {}
};

constinit PlatformLoop platformLoop;
constinit std::atomic<detail::LoopDriver*> driver = &platformLoop;

constinit std::atomic<bool> quitting = false;

// The number of the last user event that was posted when the last system event had been handled. The next
// system event is accepted only after that user event was delivered, since there is a single place for the
// content of a message between its arrival and the delivery of its user event.
constinit std::uint64_t owedUpTo = 0;

// True on the thread that runs the loop, whose own posts need not wake it.
constinit thread_local bool runsLoop = false;

// Delivers the events that were posted before this call or are owed. Events that handlers post wait for the
// next turn, so that a handler which posts to itself does not block everything else.
bool DeliverUserEvents(Application::UserEventHdl const& handler) {
    UserEventQueue& queue = UserEvents();
    std::uint64_t const end = queue.LastPosted();
    bool any = false;
    for (UserEvent event; (queue.LastTaken() < end || queue.LastTaken() < owedUpTo) && queue.Take(event);
         any = true) {
        if (handler != nullptr) handler(event.id, event.data);
    }
    return any;
}

// Runs one turn of the loop; waits up to `limit` if there is nothing to do.
void Turn(Application::UserEventHdl const& handler, Milliseconds limit) {
    runsLoop = true;
    bool const delivered = DeliverUserEvents(handler);
    bool const dispatched = driver.load()->DispatchOne();
    owedUpTo = UserEvents().LastPosted();
    if (delivered || dispatched || owedUpTo > UserEvents().LastTaken()) return;
    if (Idlers().RunAll() || quitting.load()) return;
    if (UserEvents().LastPosted() == UserEvents().LastTaken()) driver.load()->Wait(limit);
}

}  // namespace

void detail::InstallLoopDriver(LoopDriver* loop) noexcept { driver = loop != nullptr ? loop : &platformLoop; }

void Application::Execute() {
    // Restored also if the exception of a handler ends the loop.
    struct Scope {
        bool outer = std::exchange(executing_, true);
        ~Scope() { executing_ = outer; }
    } const scope;
    while (!quitting.exchange(false)) Turn(userEventHdl_, platform::EventLoop::Forever);
}

void Application::Quit() noexcept {
    quitting = true;
    driver.load()->Wake();
}

void Application::Reschedule() { Turn(userEventHdl_, RescheduleLimit); }

void Application::PostUserEvent(unsigned long id, void* data) {
    UserEvents().Post({id, data});
    // Another driver's loop may call the posting handler just before it waits.
    if (!runsLoop || driver.load() != &platformLoop) driver.load()->Wake();
}

void Application::Wait(bool wait) {
    waiting_ = wait;
    driver.load()->ShowWaiting(wait);
}

void Application::InsertIdleHdl(Link const& handler, unsigned short priority) {
    Idlers().Insert(handler, priority);
}

void Application::RemoveIdleHdl(Link const& handler) { Idlers().Remove(handler); }

}  // namespace sv
