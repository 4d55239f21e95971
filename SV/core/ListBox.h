// sv::ListBox: the plain operations of a list of texts, which need no window. The control of the user
// interface implements them, and so does `ListBoxEntries`, for programs without a display.
#pragma once

#include "SV/core/String.h"

#include <vector>

namespace sv {

class ListBox {
  public:
    /// As a position: behind the last entry. As an answer: nothing is selected.
    static constexpr unsigned short End = 0xFFFF;

    virtual ~ListBox() = default;

    virtual void Clear() = 0;
    /// In front of the entry at `position`, or at the end for any position past the last. A selection stays
    /// with its entry. A list that holds `End` entries takes no more.
    virtual void InsertEntry(String const& text, unsigned short position = End) = 0;
    /// A position past the last entry selects nothing.
    virtual void SelectEntryPos(unsigned short position) = 0;
    [[nodiscard]] virtual unsigned short GetSelectEntryPos() const = 0;
    [[nodiscard]] virtual unsigned short GetEntryCount() const = 0;
    /// Empty past the end.
    [[nodiscard]] virtual String GetEntry(unsigned short position) const = 0;
};

/// The entries and the selection alone.
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
