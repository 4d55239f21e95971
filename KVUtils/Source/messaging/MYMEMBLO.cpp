#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include "KVUtils/Source/data/FlagSet.h"
#include "KVUtils/Source/frame/Check.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <sstream>
#include <utility>

namespace kv {

MyMemoryBlock::MyMemoryBlock(long size) {
    Resize(std::max(size, 0L));
    Check::POINTER(storage_.get());
}

MyMemoryBlock::MyMemoryBlock(MyMemoryBlock const& other) : MyMemoryBlock(other.capacity_) {
    Store(other.storage_.get(), other.length_);
}

void MyMemoryBlock::operator=(MyMemoryBlock const& other) {  // NOLINT(misc-unconventional-assign-operator)
    if (this == &other) return;
    MyMemoryBlock copy(other);
    storage_ = std::move(copy.storage_);
    read_ = rememberedRead_ = rememberedWrite_ = 0;
    write_ = length_ = copy.length_;
    capacity_ = copy.capacity_;
}

long MyMemoryBlock::PutGrowing(void const* source, long count) {
    if (count < 1) return 0;
    auto const* const bytes = static_cast<char const*>(source);
    std::less<> const isBefore;
    bool const isOwn = !isBefore(bytes, storage_.get()) && isBefore(bytes, storage_.get() + capacity_);
    std::ptrdiff_t const place = isOwn ? bytes - storage_.get() : 0;
    CheckSize(count);
    return Store(isOwn ? storage_.get() + place : bytes, std::min(count, capacity_ - length_));
}

long MyMemoryBlock::Get(void const* target, long count) noexcept {
    count = std::min(count, write_ - read_);
    if (count < 1) return 0;
    std::memmove(const_cast<void*>(target), GetGetPointer(), static_cast<std::size_t>(count));
    read_ += count;
    return count;
}

void MyMemoryBlock::PeekNextChars(char* target, short count) const noexcept {
    char const* const next = storage_.get() + read_;
    char const* const end = std::find(next, next + std::clamp(long{count}, 0L, capacity_ - read_), '\0');
    char* const padding = std::copy(next, end, target);
    if (count > 0) std::fill(padding, target + count, '\0');
}

void MyMemoryBlock::Resize(long capacity) {
    // realloc often grows storage in place and moves large storage without copying; a vector always copies.
    // For 0 bytes it may return null, which would look like a failure.
    void* const moved =
        std::realloc(storage_.get(), std::max<std::size_t>(static_cast<std::size_t>(capacity), 1));
    if (moved == nullptr) return;
    static_cast<void>(storage_.release());
    storage_.reset(static_cast<char*>(moved));
    if (capacity > capacity_) std::fill_n(storage_.get() + capacity_, capacity - capacity_, '\0');
    capacity_ = capacity;
}

void MyMemoryBlock::CheckSize(long count) {
    constexpr long Most = std::numeric_limits<long>::max();
    if (count <= capacity_ - length_ || count > Most - length_) return;
    long capacity = std::max(capacity_, 1L);
    do {
        if (capacity > Most / 2) return;
        capacity *= 2;
    } while (capacity < length_ + count);
    Resize(capacity);
}

void MyMemoryBlock::Minimize() {
    Resize(length_);
    // A text without a terminating zero may have been read up to the old end of the storage.
    read_ = std::min(read_, capacity_);
    rememberedRead_ = std::min(rememberedRead_, capacity_);
}

namespace {

/// Returns `value` with its lowest bytes replaced by the next ones of the block, at most `Size`. Their number
/// is stored in `taken`.
template <std::size_t Size>
unsigned long TakeBytes(MyMemoryBlock& block, unsigned long value, long& taken) {
    std::array<unsigned char, Size> bytes{};
    taken = block.Get(bytes.data(), Size);
    for (std::size_t i = 0; i < static_cast<std::size_t>(taken); ++i) {
        value &= ~(0xFFUL << (8 * i));
        value |= static_cast<unsigned long>(bytes.at(i)) << (8 * i);
    }
    return value;
}

}  // namespace

MyMemoryBlock& operator<<(MyMemoryBlock& block, char const* text) {
    if (text != nullptr) block.Put(text, static_cast<long>(std::strlen(text)));
    return block;
}

MyMemoryBlock& operator<<(MyMemoryBlock& block, sv::String const& text) {
    block.Put(text.GetStr(), static_cast<long>(text.Len()) + 1);
    return block;
}

MyMemoryBlock& operator<<(MyMemoryBlock& block, std::iostream& stream) {
    auto const* const buffer = dynamic_cast<std::stringbuf const*>(stream.rdbuf());
    std::string_view const bytes = buffer == nullptr ? std::string_view() : buffer->view();
    block << static_cast<int>(bytes.size() & 0xFFFF);
    block.Put(bytes.data(), static_cast<long>(bytes.size()));
    return block;
}

MyMemoryBlock& operator<<(MyMemoryBlock& block, FlagSet const& set) {
    block << set.GetSize();
    for (int flag = 0; flag < set.GetSize(); ++flag) block << (set & flag);
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, char& value) {
    block.Get(&value, 1);
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned char& value) {
    block.Get(&value, 1);
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, short& value) {
    long taken = 0;
    value = static_cast<short>(TakeBytes<2>(block, static_cast<unsigned long>(value), taken));
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, unsigned short& value) {
    long taken = 0;
    value = static_cast<unsigned short>(TakeBytes<2>(block, value, taken));
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, int& value) {
    long taken = 0;
    auto const wire = static_cast<short>(TakeBytes<2>(block, 0, taken));
    if (taken == 2) value = wire;
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, long& value) {
    long taken = 0;
    unsigned long const bytes = TakeBytes<4>(block, static_cast<unsigned long>(value), taken);
    value = taken == 4 ? static_cast<long>(static_cast<std::int32_t>(bytes)) : static_cast<long>(bytes);
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, sv::String& text) {
    char const* const next = block.GetGetPointer();
    std::string_view const rest(next, static_cast<std::size_t>(block.capacity_ - block.read_));
    std::size_t const length = std::min(rest.find('\0'), rest.size());
    text = rest.substr(0, length);
    block.read_ = std::min(block.read_ + static_cast<long>(length) + 1, block.capacity_);
    return block;
}

MyMemoryBlock& operator>>(MyMemoryBlock& block, FlagSet& set) {
    constexpr int NoFlag = -2;
    int count = 0;
    block >> count;
    set = FlagSet(NoFlag, count);
    for (int flag = 0; flag < count; ++flag) {
        uchar isSet = 0;
        block >> isSet;
        if (isSet != 0) set.SetFlag(flag);
    }
    return block;
}

}  // namespace kv
