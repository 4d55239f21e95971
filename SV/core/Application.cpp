#include "SV/core/Application.h"

#include "Platform/EventLoop.h"
#include "SV/core/detail/LoopDriver.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace sv {

constinit Window* Application::appWindow_ = nullptr;
constinit Application::UserEventHdl Application::userEventHdl_ = nullptr;
constinit bool Application::executing_ = false;
constinit bool Application::waiting_ = false;

namespace {

using Milliseconds = std::chrono::milliseconds;

// The longest sleep of Reschedule: what its caller waits for may come about without an event.
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
        // Room that was used once is used again, so that a queue which is kept short never grows.
        if (first_ == events_.size()) {
            events_.clear();
            first_ = 0;
        } else if (first_ > 64 && first_ > events_.size() / 2) {
            events_.erase(events_.begin(), events_.begin() + static_cast<std::ptrdiff_t>(first_));
            first_ = 0;
        }
        events_.push_back(event);
        lastPosted_.fetch_add(1, std::memory_order_release);
    }

    // Takes the next event out; false when there is none.
    [[nodiscard]] bool Take(UserEvent& event) {
        if (taken_ == LastPosted()) return false;
        std::lock_guard const lock(mutex_);
        event = events_[first_++];
        ++taken_;
        return true;
    }

    [[nodiscard]] std::uint64_t LastPosted() const noexcept {
        return lastPosted_.load(std::memory_order_acquire);
    }
    // The number of the event that was taken last; for the main thread.
    [[nodiscard]] std::uint64_t LastTaken() const noexcept { return taken_; }

  private:
    std::mutex mutex_;
    std::vector<UserEvent> events_;
    std::size_t first_ = 0;
    std::uint64_t taken_ = 0;
    std::atomic<std::uint64_t> lastPosted_ = 0;
};

struct IdleHandler {
    Link link;
    unsigned short priority = 0;
    unsigned serial = 0;
    bool running = false;
};

// The idle handlers in the order they are called in. A handler may insert and remove handlers, itself among
// them, so that the list is found anew by serial numbers after each call.
class IdleHandlers {
  public:
    void Insert(Link const& link, unsigned short priority) {
        auto const place = std::ranges::upper_bound(list_, priority, {}, &IdleHandler::priority);
        list_.insert(place, {link, priority, ++lastSerial_, false});
    }

    void Remove(Link const& link) {
        auto const place = std::ranges::find(list_, link, &IdleHandler::link);
        if (place != list_.end()) list_.erase(place);
    }

    // Calls each handler that does not run already. False when none had anything to do.
    bool RunAll() {
        bool anyDid = false;
        for (std::size_t next = 0; next < list_.size();) {
            IdleHandler& handler = list_[next];
            if (handler.running) {
                ++next;
                continue;
            }
            unsigned const serial = handler.serial;
            unsigned short const priority = handler.priority;
            Link const link = handler.link;
            Run const run(*this, serial);
            anyDid = link.Call(nullptr) != 0 || anyDid;
            next = PlaceBehind(priority, serial);
        }
        return anyDid;
    }

  private:
    // Marks a handler as running, also when it leaves by an exception.
    class Run {
      public:
        Run(IdleHandlers& handlers, unsigned serial) : handlers_(handlers), serial_(serial) { Mark(true); }
        Run(Run const&) = delete;
        Run& operator=(Run const&) = delete;
        ~Run() { Mark(false); }

      private:
        void Mark(bool running) {
            auto const place = std::ranges::find(handlers_.list_, serial_, &IdleHandler::serial);
            if (place != handlers_.list_.end()) place->running = running;
        }

        IdleHandlers& handlers_;
        unsigned serial_;
    };

    [[nodiscard]] std::size_t PlaceBehind(unsigned short priority, unsigned serial) const {
        auto const place = std::ranges::find_if(list_, [=](IdleHandler const& handler) {
            return handler.priority > priority || (handler.priority == priority && handler.serial > serial);
        });
        return static_cast<std::size_t>(place - list_.begin());
    }

    std::vector<IdleHandler> list_;
    unsigned lastSerial_ = 0;
};

// Never destroyed, since threads may post, and objects remove their handlers, while the program ends. Not
// constant initialised either: a mutex is not on every system.
UserEventQueue& UserEvents() {
    static UserEventQueue& queue = *new UserEventQueue;
    return queue;
}

IdleHandlers& Idlers() {
    static IdleHandlers& handlers = *new IdleHandlers;
    return handlers;
}

// The loop of a program without windows. Its end must do nothing, since threads may post while the program
// ends. NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
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

// The number of the last user event that stood posted when the system's last event had been handled. The next
// one is taken in when that many were delivered, and not before: a message keeps its content in a place of
// which there is one only until its user event is delivered.
constinit std::uint64_t owedUpTo = 0;

// Set on the thread that runs the loop: what it posts itself need not wake it.
constinit thread_local bool runsLoop = false;

// Delivers what was posted before this call and what is owed; what handlers post meanwhile waits for the next
// turn, so that a handler which posts to itself leaves room for everything else.
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

// One turn of the loop; waits up to `limit` when there is nothing at all to do.
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
    // Put back also when a handler's exception ends the loop.
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
    // A foreign loop may run the handler that posts on its way to sleep.
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
