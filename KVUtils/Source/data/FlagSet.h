// FlagSet: a fixed number of flags, counted from 0. It never grows, except that assignment takes the size of
// its source. An index of -1 stands for all flags where that makes sense; any other index outside is ignored.
#pragma once

#include <vector>

namespace kv {

using uchar = unsigned char;

class MyMemoryBlock;

class FlagSet {
  public:
    /// `size` flags, of which only `flag` is set: all of them for -1, none for an index outside. A negative
    /// size counts as 0.
    FlagSet(int flag, int size);

    /// The number of flags, set or not.
    [[nodiscard]] int GetSize() const noexcept { return static_cast<int>(flags_.size()); }

    /// Sets a flag in this set. Spelled as a binary operator, though it changes its left side: callers rely
    /// on it, here and below.
    FlagSet& operator|(int flag) noexcept;
    /// Sets every flag that is set in `other`, up to the smaller size.
    FlagSet& operator|(FlagSet const& other) noexcept;

    /// Sets, clears, turns a flag over; all of them for -1.
    void SetFlag(int flag) noexcept;
    void LoescheFlag(int flag) noexcept;
    void ToggleFlag(int flag) noexcept;

    /// The flag, 1 or 0; 0 for any index outside, -1 too.
    [[nodiscard]] uchar operator&(int flag) const noexcept;
    /// 1 if some flag is set in both, up to the smaller size.
    [[nodiscard]] uchar operator&(FlagSet const& other) const noexcept;
    /// 1 if size and flags are equal.
    [[nodiscard]] uchar operator==(FlagSet const& other) const noexcept {
        return flags_ == other.flags_ ? 1 : 0;
    }

  private:
    [[nodiscard]] bool Holds(int flag) const noexcept { return flag >= 0 && flag < GetSize(); }

    std::vector<uchar> flags_;  // each 0 or 1
};

/// Writes the number of flags as an `int` and one byte a flag. An `int` has 16 bits in a block, so a set of
/// more than 32767 flags is not read back.
MyMemoryBlock& operator<<(MyMemoryBlock& block, FlagSet const& set);
/// Replaces the set by the one in the block. Flags that are missing at the end of the data are clear, and so
/// is a set of a size that is missing or negative: it is empty.
MyMemoryBlock& operator>>(MyMemoryBlock& block, FlagSet& set);

}  // namespace kv
