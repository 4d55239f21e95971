// MessageDispatcher: the handler of each message, and the queue of messages that wait for theirs. It knows
// nothing of how messages come in or how they are answered.
#pragma once

#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/messaging/KORVELEvent.h"
#include "KVUtils/Source/messaging/KORVELEventQueue.h"
#include "KVUtils/Source/messaging/MessageTable.h"
#include "KVUtils/Source/messaging/detail/ServerLock.h"
#include "SV/core/Link.h"

#include <array>
#include <memory>

namespace kv::detail {

class MessageDispatcher {
  public:
    /// Every message has the handler `standard` at first. The lock must outlive the object.
    MessageDispatcher(ServerLock const& lock, sv::Link const& standard);
    MessageDispatcher(MessageDispatcher const&) = delete;
    MessageDispatcher& operator=(MessageDispatcher const&) = delete;
    ~MessageDispatcher();

    /// Exchanges a message's handler. With `atOnce` the message is handled under any lock and while another
    /// handler runs. Does nothing for a number that is not a message's.
    sv::Link ChangeHandler(unsigned message, sv::Link const& handler, bool atOnce);
    [[nodiscard]] sv::Link const& Handler(MessageNumber message) const noexcept { return handlers_[message]; }

    /// Appends a copy of a message of a known number below 1000.
    void Put(KORVELEvent const& event) { queue_.Put(new KORVELEvent(event)); }
    [[nodiscard]] bool IsEmpty() const noexcept { return queue_.Count() == 0; }
    /// Handles what is queued, as far as the locks let it, and returns how many messages were handled.
    unsigned long Run();

    /// The application's own lock: false when a client owns the program, or the lock is held.
    bool Lock() noexcept;
    void Unlock() noexcept { isLocked_ = false; }
    [[nodiscard]] bool IsLocked() const noexcept { return isLocked_; }

  private:
    unsigned long RunAll();
    unsigned long RunAllowed();
    [[nodiscard]] bool MayRun(KORVELEvent const& event) const;
    void Handle(KORVELEvent& event);
    std::unique_ptr<KORVELEvent> TakeFirst() { return std::unique_ptr<KORVELEvent>(queue_.Get()); }

    ServerLock const& lock_;
    std::array<sv::Link, ANZAHL_BOTSCHAFTEN> handlers_;
    FlagSet atOnce_;
    KORVELEventQueue queue_;  // owns its events
    bool isHandling_ = false;
    bool isLocked_ = false;
};

}  // namespace kv::detail
