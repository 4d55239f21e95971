// TextAry: a container of texts by number. The caller owns the texts and frees them.
#pragma once

#include "SV/core/Container.h"
#include "SV/core/String.h"

namespace kv {

class TextAry : public sv::Container {
  public:
    explicit TextAry(unsigned short blockSize = 16) : Container(blockSize) {}

    /// Truncates the list, or extends it with entries that have no text (null).
    void ChangeSize(unsigned long count);

    /// Replaces an entry and returns the old one. Past the end it changes nothing and returns `text` itself.
    sv::String* Put(unsigned long index, sv::String* text);
    /// Returns null past the end.
    [[nodiscard]] sv::String* Get(unsigned long index) const noexcept;

    /// Compares the texts, not the pointers; an entry without text equals only another without text.
    friend bool operator==(TextAry const& a, TextAry const& b) noexcept;
};

}  // namespace kv
