#include "KVUtils/Source/data/FlagSet.h"

#include <algorithm>
#include <functional>

namespace kv {

namespace {

constexpr int AllFlags = -1;

}  // namespace

FlagSet::FlagSet(int flag, int size) : flags_(static_cast<std::size_t>(std::max(size, 0))) { SetFlag(flag); }

FlagSet& FlagSet::operator|(int flag) noexcept {
    SetFlag(flag);
    return *this;
}

FlagSet& FlagSet::operator|(FlagSet const& other) noexcept {
    auto const common = std::min(flags_.size(), other.flags_.size());
    std::transform(flags_.begin(), flags_.begin() + static_cast<std::ptrdiff_t>(common), other.flags_.begin(),
                   flags_.begin(), std::bit_or<>());
    return *this;
}

void FlagSet::SetFlag(int flag) noexcept {
    if (flag == AllFlags) std::ranges::fill(flags_, uchar{1});
    if (Holds(flag)) flags_[static_cast<std::size_t>(flag)] = 1;
}

void FlagSet::LoescheFlag(int flag) noexcept {
    if (flag == AllFlags) std::ranges::fill(flags_, uchar{0});
    if (Holds(flag)) flags_[static_cast<std::size_t>(flag)] = 0;
}

void FlagSet::ToggleFlag(int flag) noexcept {
    if (flag == AllFlags) {
        for (uchar& each : flags_) each ^= 1;
    }
    if (Holds(flag)) flags_[static_cast<std::size_t>(flag)] ^= 1;
}

uchar FlagSet::operator&(int flag) const noexcept {
    return Holds(flag) ? flags_[static_cast<std::size_t>(flag)] : uchar{0};
}

uchar FlagSet::operator&(FlagSet const& other) const noexcept {
    std::size_t const common = std::min(flags_.size(), other.flags_.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (flags_[i] != 0 && other.flags_[i] != 0) return 1;
    }
    return 0;
}

}  // namespace kv
