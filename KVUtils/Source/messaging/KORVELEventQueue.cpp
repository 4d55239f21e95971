#include "KVUtils/Source/messaging/KORVELEventQueue.h"

#include <algorithm>

namespace kv {

KORVELEventQueue::KORVELEventQueue(unsigned short /*init*/, unsigned short /*grow*/) {}

void KORVELEventQueue::Put(KORVELEvent* event) { events_.push_back(event); }

KORVELEvent* KORVELEventQueue::Get() {
    if (events_.empty()) return nullptr;
    KORVELEvent* const first = events_.front();
    events_.pop_front();
    return first;
}

unsigned long KORVELEventQueue::Count() const noexcept { return static_cast<unsigned long>(events_.size()); }

KORVELEvent* KORVELEventQueue::GetObject(unsigned long position) const noexcept {
    return position < Count() ? events_[position] : nullptr;
}

unsigned long KORVELEventQueue::GetPos(KORVELEvent const* event) const noexcept {
    auto const place = std::ranges::find(events_, event);
    return place == events_.end() ? sv::Container::End : static_cast<unsigned long>(place - events_.begin());
}

}  // namespace kv
