// FlagSet: a fixed number of flags, numbered from 0. Only assignment changes the size. The index -1 means all
// flags; any other index out of range is ignored.
#pragma once

#include <vector>

namespace kv {

using uchar = unsigned char;

class MyMemoryBlock;

class FlagSet {
  public:
    /// Creates `size` flags with only `flag` set: all of them for -1, none for an index out of range. A
    /// negative size counts as 0.
    FlagSet(int flag, int size);

    /// Returns the number of flags, set or not.
    [[nodiscard]] int GetSize() const noexcept { return static_cast<int>(flags_.size()); }

    /// Sets a flag. Intentional: the binary operators change their left operand, and callers rely on it.
    FlagSet& operator|(int flag) noexcept;
    /// Sets every flag that is set in `other`, up to the smaller size.
    FlagSet& operator|(FlagSet const& other) noexcept;

    /// Sets, clears or toggles a flag; all of them for -1.
    void SetFlag(int flag) noexcept;
    void LoescheFlag(int flag) noexcept;
    void ToggleFlag(int flag) noexcept;

    /// Returns the flag, 1 or 0; 0 for any index out of range, -1 included.
    [[nodiscard]] uchar operator&(int flag) const noexcept;
    /// Returns 1 if any flag is set in both, up to the smaller size, otherwise 0.
    [[nodiscard]] uchar operator&(FlagSet const& other) const noexcept;
    /// Returns 1 if size and flags are equal, otherwise 0.
    [[nodiscard]] uchar operator==(FlagSet const& other) const noexcept {
        return flags_ == other.flags_ ? 1 : 0;
    }

  private:
    [[nodiscard]] bool Holds(int flag) const noexcept { return flag >= 0 && flag < GetSize(); }

    std::vector<uchar> flags_;  // each 0 or 1
};

/// Writes the number of flags as an `int` and one byte per flag. An `int` in a block has 16 bits, so a set of
/// more than 32767 flags cannot be read back.
MyMemoryBlock& operator<<(MyMemoryBlock& block, FlagSet const& set);
/// Replaces the set by the one in the block. Flags missing at the end of the data are clear; without a size,
/// or with a negative one, the set is empty.
MyMemoryBlock& operator>>(MyMemoryBlock& block, FlagSet& set);

}  // namespace kv
