#include "KVUtils/Source/messaging/KORVELEventQueue.h"

namespace kv {

void KORVELEventQueue::Put(KORVELEvent* event) { Insert(event, End); }

KORVELEvent* KORVELEventQueue::Get() { return static_cast<KORVELEvent*>(Remove(0UL)); }

KORVELEvent* KORVELEventQueue::GetObject(unsigned long position) const noexcept {
    return static_cast<KORVELEvent*>(Container::GetObject(position));
}

bool operator==(KORVELEventQueue const& left, KORVELEventQueue const& right) noexcept {
    if (left.Count() != right.Count()) return false;
    for (unsigned long i = 0; i < left.Count(); ++i) {
        if (left.GetObject(i) != right.GetObject(i)) return false;
    }
    return true;
}

}  // namespace kv
