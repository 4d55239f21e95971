// sv::Container: an ordered list of pointers with a cursor. It does not own what its entries point to.
#pragma once

#include <cstddef>
#include <vector>

namespace sv {

class Container {
  public:
    /// As a position: behind the last entry. As an answer: not found.
    static constexpr unsigned long End = static_cast<unsigned long>(-1);

    /// Room for `initialSize` entries. Block size and growth are accepted for the callers' sake; storage
    /// grows by itself.
    explicit Container(unsigned short blockSize = 1024, unsigned short initialSize = 16,
                       unsigned short growth = 16);

    /// In front of the current entry, which the new one then is; in an empty list, the only one.
    void Insert(void* object);
    /// At `position`, or at the end for `End` and any position past the last.
    void Insert(void* object, unsigned long position);
    /// In front of the entry `before`, or at the end when it is not in the list.
    void Insert(void* object, void* before);

    /// Takes the current entry out and returns it; the one behind it becomes current, or the last.
    void* Remove();
    /// Takes an entry out and returns it; null when there is none.
    void* Remove(unsigned long position);
    void* Remove(void* object);

    /// Puts `object` into the place of an entry, which is returned; null when there is none.
    void* Replace(void* object);
    void* Replace(void* object, unsigned long position);
    void* Replace(void* object, void* old);

    void Clear() noexcept;

    [[nodiscard]] unsigned long Count() const noexcept { return static_cast<unsigned long>(entries_.size()); }
    /// The entry at `position`, or null past the end.
    [[nodiscard]] void* GetObject(unsigned long position) const noexcept;
    /// The position of `object`, or `End`.
    [[nodiscard]] unsigned long GetPos(void const* object) const noexcept;

    [[nodiscard]] void* GetCurObject() const noexcept { return GetObject(current_); }
    /// The cursor's position; 0 in an empty list.
    [[nodiscard]] unsigned long GetCurPos() const noexcept { return current_; }

    /// Each moves the cursor and returns the entry there; null, with the cursor unmoved, when there is none.
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

/// A container that is told only how much room to start with.
class List : public Container {
  public:
    explicit List(unsigned short initialSize = 16, unsigned short growth = 16)
        : Container(1024, initialSize, growth) {}
};

}  // namespace sv
