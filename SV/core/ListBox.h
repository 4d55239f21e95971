// sv::ListBox: the operations of a list of texts. Implemented by the control of the user interface and, for
// programs without a display, by `ListBoxEntries`.
#pragma once

#include "SV/core/String.h"

#include <vector>

namespace sv {

class ListBox {
  public:
    /// As a position: after the last entry. As a result: nothing is selected.
    static constexpr unsigned short End = 0xFFFF;

    virtual ~ListBox() = default;

    virtual void Clear() = 0;
    /// Inserts before the entry at `position`, or at the end for any position past the last. A selection
    /// stays with its entry. A list of `End` entries is full and ignores the call.
    virtual void InsertEntry(String const& text, unsigned short position = End) = 0;
    /// Selects an entry; a position past the last clears the selection.
    virtual void SelectEntryPos(unsigned short position) = 0;
    [[nodiscard]] virtual unsigned short GetSelectEntryPos() const = 0;
    [[nodiscard]] virtual unsigned short GetEntryCount() const = 0;
    /// Empty for a position past the last.
    [[nodiscard]] virtual String GetEntry(unsigned short position) const = 0;
};

/// The entries and the selection, without a window.
class ListBoxEntries final : public ListBox {
  public:
    void Clear() override;
    void InsertEntry(String const& text, unsigned short position = End) override;
    void SelectEntryPos(unsigned short position) override;
    [[nodiscard]] unsigned short GetSelectEntryPos() const override { return selected_; }
    [[nodiscard]] unsigned short GetEntryCount() const override;
    [[nodiscard]] String GetEntry(unsigned short position) const override;

  private:
    std::vector<String> entries_;
    unsigned short selected_ = End;
};

}  // namespace sv
