#include "SV/core/ListBox.h"

#include <algorithm>

namespace sv {

void ListBoxEntries::Clear() {
    entries_.clear();
    selected_ = End;
}

void ListBoxEntries::InsertEntry(String const& text, unsigned short position) {
    unsigned short const count = GetEntryCount();
    if (count == End) return;
    unsigned short const at = std::min(position, count);
    entries_.insert(entries_.begin() + at, text);
    if (selected_ != End && at <= selected_) ++selected_;
}

void ListBoxEntries::SelectEntryPos(unsigned short position) {
    selected_ = position < GetEntryCount() ? position : End;
}

unsigned short ListBoxEntries::GetEntryCount() const { return static_cast<unsigned short>(entries_.size()); }

String ListBoxEntries::GetEntry(unsigned short position) const {
    return position < entries_.size() ? entries_[position] : String();
}

}  // namespace sv
