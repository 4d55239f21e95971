// sv::Container: an ordered list of pointers with a cursor. The objects are not owned.
#pragma once

#include "SV/core/ForeignMacros.h"

#include <cstddef>
#include <vector>

namespace sv {

class Container {
  public:
    /// As a position: after the last entry. As a result: not found.
    static constexpr unsigned long End = static_cast<unsigned long>(-1);

    /// Reserves `initialSize` entries. Block size and growth have no effect; they are there for callers that
    /// state them.
    explicit Container(unsigned short blockSize = 1024, unsigned short initialSize = 16,
                       unsigned short growth = 16);

    /// Inserts before the current entry and makes the new entry current.
    void Insert(void* object);
    /// Inserts at `position`, or at the end for `End` and any position past the last.
    void Insert(void* object, unsigned long position);
    /// Inserts before the entry `before`, or at the end if the list does not contain it.
    void Insert(void* object, void* before);

    /// Removes the current entry and returns it. The next entry becomes current, or the last one.
    void* Remove();
    /// Removes an entry and returns it; null if there is none.
    void* Remove(unsigned long position);
    void* Remove(void* object);

    /// Replaces an entry by `object` and returns it; null if there is none.
    void* Replace(void* object);
    void* Replace(void* object, unsigned long position);
    void* Replace(void* object, void* old);

    void Clear() noexcept;

    [[nodiscard]] unsigned long Count() const noexcept { return static_cast<unsigned long>(entries_.size()); }
    /// Returns the entry at `position`, or null past the end.
    [[nodiscard]] void* GetObject(unsigned long position) const noexcept;
    /// Returns the position of `object`, or `End`.
    [[nodiscard]] unsigned long GetPos(void const* object) const noexcept;

    [[nodiscard]] void* GetCurObject() const noexcept { return GetObject(current_); }
    /// The position of the cursor; 0 in an empty list.
    [[nodiscard]] unsigned long GetCurPos() const noexcept { return current_; }

    /// Moves the cursor and returns the entry there. Returns null, and leaves the cursor, if there is none.
    void* Seek(unsigned long position) noexcept;
    void* Seek(void* object) noexcept;
    void* First() noexcept { return Seek(0UL); }
    void* Last() noexcept { return Seek(Count() - 1); }
    void* Next() noexcept { return Seek(current_ + 1); }
    void* Prev() noexcept { return Seek(current_ - 1); }

  private:
    std::vector<void*> entries_;
    unsigned long current_ = 0;
};

/// A container whose constructor takes the initial size first.
class List : public Container {
  public:
    explicit List(unsigned short initialSize = 16, unsigned short growth = 16)
        : Container(1024, initialSize, growth) {}
};

}  // namespace sv
