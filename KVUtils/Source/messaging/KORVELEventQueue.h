// KORVELEventQueue: a container of messages in the order of their arrival. Like every container it holds
// pointers: copies share the events, which belong to the caller.
#pragma once

#include "SV/core/Container.h"

// <windows.h> makes a macro of this name, for one of two others. All three work, in any order of the
// includes.
#pragma push_macro("GetObject")
#undef GetObject

namespace kv {

class KORVELEvent;

class KORVELEventQueue : public sv::Container {
  public:
    /// Creates an empty queue with room for `init` events. Storage grows as needed.
    explicit KORVELEventQueue(unsigned short init = 16, unsigned short grow = 16)
        : Container(init, init, grow) {}

    /// Appends an event.
    void Put(KORVELEvent* event);
    /// Removes the first event and returns it; null if there is none.
    KORVELEvent* Get();

    /// The event at a position, or null past the end.
    [[nodiscard]] KORVELEvent* GetObject(unsigned long position) const noexcept;
#ifdef _WIN32
    [[nodiscard]] KORVELEvent* GetObjectA(unsigned long position) const noexcept {
        return GetObject(position);
    }
    [[nodiscard]] KORVELEvent* GetObjectW(unsigned long position) const noexcept {
        return GetObject(position);
    }
#endif

    /// The same events in the same order.
    friend bool operator==(KORVELEventQueue const& left, KORVELEventQueue const& right) noexcept;
};

}  // namespace kv

#pragma pop_macro("GetObject")
