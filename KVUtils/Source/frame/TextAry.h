// TextAry: a list of texts by number. Who puts a text into it owns it, and frees it.
#pragma once

#include "SV/core/Container.h"
#include "SV/core/String.h"

namespace kv {

class TextAry : private sv::Container {
  public:
    using Container::Clear;
    using Container::Count;

    explicit TextAry(unsigned short blockSize = 16) : Container(blockSize) {}

    /// Cuts the list off, or fills it up with places that hold no text (null).
    void ChangeSize(unsigned long count);

    /// Puts a text in its place and returns the one that stood there. Past the end nothing is put, and `text`
    /// itself comes back.
    sv::String* Put(unsigned long index, sv::String* text);
    /// Null past the end.
    [[nodiscard]] sv::String* Get(unsigned long index) const noexcept;

    /// Whether there are as many places, with equal texts or none in each.
    friend bool operator==(TextAry const& a, TextAry const& b) noexcept;
};

}  // namespace kv
