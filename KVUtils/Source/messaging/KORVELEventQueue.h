// KORVELEventQueue: messages in the order of their arrival. Like every container it holds pointers: copies
// share the events, which belong to the caller.
#pragma once

#include "SV/core/Container.h"

#include <deque>

namespace kv {

class KORVELEvent;

class KORVELEventQueue {
  public:
    /// Creates an empty queue. Both sizes are accepted for compatibility; storage grows as needed.
    explicit KORVELEventQueue(unsigned short init = 16, unsigned short grow = 16);

    /// Appends an event.
    void Put(KORVELEvent* event);
    /// Removes the first event and returns it; null if there is none.
    KORVELEvent* Get();

    [[nodiscard]] unsigned long Count() const noexcept;
    /// The event at a position, or null past the end.
    [[nodiscard]] KORVELEvent* GetObject(unsigned long position) const noexcept;
    /// The position of an event, or `sv::Container::End`.
    [[nodiscard]] unsigned long GetPos(KORVELEvent const* event) const noexcept;
    /// Removes the events, which are not deleted.
    void Clear() noexcept { events_.clear(); }

    /// The same events in the same order.
    friend bool operator==(KORVELEventQueue const&, KORVELEventQueue const&) = default;

  private:
    std::deque<KORVELEvent*> events_;
};

}  // namespace kv
