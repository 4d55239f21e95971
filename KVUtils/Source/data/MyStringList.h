// MyStringList: a list that owns its strings, for values of a data file that are arrays of texts.
#pragma once

#include "SV/core/Container.h"
#include "SV/core/String.h"

namespace kv {

/// Add entries with `Append` only: the destructor deletes each entry as a string.
class MyStringList : public sv::Container {
  public:
    MyStringList() = default;
    MyStringList(MyStringList const&) = delete;
    MyStringList& operator=(MyStringList const&) = delete;
    ~MyStringList();

    /// Appends a copy of the text.
    void Append(sv::String const& text);

    /// Returns the string at this position, which must be below `Count()`.
    [[nodiscard]] sv::String& operator[](int position) noexcept;
    [[nodiscard]] sv::String const& operator[](int position) const noexcept;
};

}  // namespace kv
