// sv::ListBox: the operations of a list of texts. Implemented by the control of the user interface and, for
// programs without a display, by `ListBoxEntries`.
#pragma once

#include "SV/core/String.h"

#include <limits>
#include <vector>

namespace sv {

class ListBox {
  public:
    /// As a position: after the last entry. As a result: nothing is selected.
    static constexpr int End = std::numeric_limits<int>::max();

    virtual ~ListBox() = default;

    virtual void Clear() = 0;
    /// Inserts before the entry at `position`, or at the end for any position past the last. A selection
    /// stays with its entry.
    virtual void InsertEntry(String const& text, int position = End) = 0;
    /// Selects an entry; a position past the last clears the selection.
    virtual void SelectEntryPos(int position) = 0;
    [[nodiscard]] virtual int GetSelectEntryPos() const = 0;
    [[nodiscard]] virtual int GetEntryCount() const = 0;
    /// Empty for a position past the last.
    [[nodiscard]] virtual String GetEntry(int position) const = 0;
};

/// The entries and the selection, without a window.
class ListBoxEntries final : public ListBox {
  public:
    void Clear() override;
    void InsertEntry(String const& text, int position = End) override;
    void SelectEntryPos(int position) override;
    [[nodiscard]] int GetSelectEntryPos() const override { return selected_; }
    [[nodiscard]] int GetEntryCount() const override;
    [[nodiscard]] String GetEntry(int position) const override;

  private:
    std::vector<String> entries_;
    int selected_ = End;
};

}  // namespace sv
