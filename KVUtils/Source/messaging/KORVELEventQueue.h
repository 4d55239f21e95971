// KORVELEventQueue: messages in the order of their arrival. Like every container of the toolkit it holds
// pointers: copies share the events, and who puts an event in takes care of it.
#pragma once

#include "SV/core/Container.h"

#include <deque>

namespace kv {

class KORVELEvent;

class KORVELEventQueue {
  public:
    /// Both sizes are accepted for the callers' sake; storage grows by itself.
    explicit KORVELEventQueue(unsigned short init = 16, unsigned short grow = 16);

    /// Appends an event.
    void Put(KORVELEvent* event);
    /// Takes out the first event; null when there is none.
    KORVELEvent* Get();

    [[nodiscard]] unsigned long Count() const noexcept;
    /// The event at a position, or null past the end.
    [[nodiscard]] KORVELEvent* GetObject(unsigned long position) const noexcept;
    /// The position of an event, or `sv::Container::End`.
    [[nodiscard]] unsigned long GetPos(KORVELEvent const* event) const noexcept;
    /// Forgets the events, which are not deleted.
    void Clear() noexcept { events_.clear(); }

    /// The same events in the same order.
    friend bool operator==(KORVELEventQueue const&, KORVELEventQueue const&) = default;

  private:
    std::deque<KORVELEvent*> events_;  // unlike the toolkit's container, cheap to take from at the front
};

}  // namespace kv
