// MyStringList: a list of strings that owns them, for the values of a data file that are arrays of texts.
#pragma once

#include "SV/core/Container.h"
#include "SV/core/String.h"

namespace kv {

/// Entries come in by `Append` alone: whatever stands in the list at its end is freed as a string.
class MyStringList : public sv::Container {
  public:
    MyStringList() = default;
    MyStringList(MyStringList const&) = delete;
    MyStringList& operator=(MyStringList const&) = delete;
    ~MyStringList();

    /// Adds a copy of the text at the end.
    void Append(sv::String const& text);

    /// The string at this position, which must be below `Count()`.
    [[nodiscard]] sv::String& operator[](int position) noexcept;
    [[nodiscard]] sv::String const& operator[](int position) const noexcept;
};

}  // namespace kv
