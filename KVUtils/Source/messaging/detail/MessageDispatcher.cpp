#include "KVUtils/Source/messaging/detail/MessageDispatcher.h"

#include "KVUtils/Source/messaging/detail/MessageWire.h"

#include <utility>

namespace kv::detail {

namespace {

constexpr int NoFlag = -2;

/// Sets a flag and puts it back at the end of the scope, also when a handler throws.
class FlagGuard {
  public:
    explicit FlagGuard(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    FlagGuard(FlagGuard const&) = delete;
    FlagGuard& operator=(FlagGuard const&) = delete;
    ~FlagGuard() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

/// The messages that must wait. They return to the head of the queue at the end of the scope, also when a
/// handler throws.
class WaitingQueue {
  public:
    explicit WaitingQueue(KORVELEventQueue& queue) : queue_(queue) {}
    WaitingQueue(WaitingQueue const&) = delete;
    WaitingQueue& operator=(WaitingQueue const&) = delete;
    ~WaitingQueue() {
        while (KORVELEvent* const rest = queue_.Get()) waiting_.Put(rest);
        std::swap(queue_, waiting_);
    }
    void Put(std::unique_ptr<KORVELEvent> event) { waiting_.Put(event.release()); }

  private:
    KORVELEventQueue& queue_;
    KORVELEventQueue waiting_;
};

int NumberOf(KORVELEvent const& event) { return NumberOfMessage(event.GetCommandName()); }

}  // namespace

MessageDispatcher::MessageDispatcher(ServerLock const& lock, sv::Link const& standard)
    : lock_(lock), atOnce_(NoFlag, ANZAHL_BOTSCHAFTEN) {
    handlers_.fill(standard);
}

MessageDispatcher::~MessageDispatcher() {
    while (TakeFirst() != nullptr) {
    }
}

sv::Link MessageDispatcher::ChangeHandler(unsigned message, sv::Link const& handler, bool atOnce) {
    if (message >= handlers_.size()) return {};
    if (atOnce) {
        atOnce_.SetFlag(static_cast<int>(message));
    } else {
        atOnce_.LoescheFlag(static_cast<int>(message));
    }
    return std::exchange(handlers_[message], handler);
}

bool MessageDispatcher::Lock() noexcept {
    if (lock_.IsOwned() || isLocked_) return false;
    isLocked_ = true;
    return true;
}

unsigned long MessageDispatcher::Run() {
    return isHandling_ || lock_.IsOwned() || isLocked_ ? RunAllowed() : RunAll();
}

unsigned long MessageDispatcher::RunAll() {
    // The guard keeps this loop from entering itself. Intentional: the queue is emptied whatever messages
    // come in and whatever locks change while it runs.
    FlagGuard const locked(isLocked_);
    unsigned long count = 0;
    for (; std::unique_ptr<KORVELEvent> const event = TakeFirst(); ++count) Handle(*event);
    return count;
}

unsigned long MessageDispatcher::RunAllowed() {
    WaitingQueue waiting(queue_);
    unsigned long count = 0;
    while (std::unique_ptr<KORVELEvent> event = TakeFirst()) {
        if (MayRun(*event)) {
            Handle(*event);
            ++count;
        } else {
            waiting.Put(std::move(event));
        }
    }
    return count;
}

bool MessageDispatcher::MayRun(KORVELEvent const& event) const {
    if ((atOnce_ & NumberOf(event)) != 0) return true;
    return !isHandling_ && lock_.Allows(event.GetSender());
}

void MessageDispatcher::Handle(KORVELEvent& event) {
    FlagGuard const handling(isHandling_);
    handlers_[static_cast<std::size_t>(NumberOf(event))].Call(&event);
}

}  // namespace kv::detail
