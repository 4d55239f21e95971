#include "SV/core/ListBox.h"

#include <algorithm>

namespace sv {

void ListBoxEntries::Clear() {
    entries_.clear();
    selected_ = End;
}

void ListBoxEntries::InsertEntry(String const& text, int position) {
    int const count = GetEntryCount();
    int const at = position < 0 ? count : std::min(position, count);
    entries_.insert(entries_.begin() + at, text);
    if (selected_ != End && at <= selected_) ++selected_;
}

void ListBoxEntries::SelectEntryPos(int position) {
    selected_ = position >= 0 && position < GetEntryCount() ? position : End;
}

int ListBoxEntries::GetEntryCount() const { return static_cast<int>(entries_.size()); }

String ListBoxEntries::GetEntry(int position) const {
    return position >= 0 && position < GetEntryCount() ? entries_[static_cast<std::size_t>(position)]
                                                       : String();
}

}  // namespace sv
