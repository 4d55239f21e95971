#include "SV/core/Container.h"

#include <algorithm>
#include <utility>

namespace sv {

Container::Container(unsigned short /*blockSize*/, unsigned short initialSize, unsigned short /*growth*/) {
    entries_.reserve(initialSize);
}

void Container::Insert(void* object) { Insert(object, current_); }

void Container::Insert(void* object, unsigned long position) {
    unsigned long const place = std::min(position, Count());
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(place), object);
    // The cursor stays on its entry, unless the new one was inserted exactly there.
    if (place < current_) ++current_;
}

void Container::Insert(void* object, void* before) { Insert(object, GetPos(before)); }

void* Container::Remove() { return Remove(current_); }

void* Container::Remove(unsigned long position) {
    if (position >= Count()) return nullptr;
    auto const place = entries_.begin() + static_cast<std::ptrdiff_t>(position);
    void* const removed = *place;
    entries_.erase(place);
    if (position < current_ || (current_ > 0 && current_ >= Count())) --current_;
    return removed;
}

void* Container::Remove(void* object) { return Remove(GetPos(object)); }

void* Container::Replace(void* object) { return Replace(object, current_); }

void* Container::Replace(void* object, unsigned long position) {
    if (position >= Count()) return nullptr;
    return std::exchange(entries_[position], object);
}

void* Container::Replace(void* object, void* old) { return Replace(object, GetPos(old)); }

void Container::Clear() noexcept {
    entries_.clear();
    current_ = 0;
}

void* Container::GetObject(unsigned long position) const noexcept {
    return position < Count() ? entries_[position] : nullptr;
}

unsigned long Container::GetPos(void const* object) const noexcept {
    auto const place = std::find(entries_.begin(), entries_.end(), object);
    return place == entries_.end() ? End : static_cast<unsigned long>(place - entries_.begin());
}

void* Container::Seek(unsigned long position) noexcept {
    if (position >= Count()) return nullptr;
    current_ = position;
    return entries_[position];
}

void* Container::Seek(void* object) noexcept { return Seek(GetPos(object)); }

}  // namespace sv
