// sv::MenuBar: the menu bar at the top of a window.
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/core/Link.h"
#include "SV/ui/Window.h"

#include <vector>

namespace sv {

/// Filled once, menu by menu from the top down. A "~" in a text marks its mnemonic.
///     MenuBar menu(&window);
///     menu.InsertMenu("~File");
///     menu.InsertItem(OpenId, "~Open...", Link::To<&Desk::OpenHdl>(*this), "Ctrl+O");
class MenuBar : public Window {
  public:
    explicit MenuBar(Window* parent, Style style = 0);

    /// Appends an empty menu.
    void InsertMenu(String const& title);
    // Each appends to the last menu; without a menu it does nothing.
    /// The link is called with the bar as the sender. `id` is chosen by the caller and must not be 0. The
    /// keys of `shortcut` ("Ctrl+O", "Ctrl+Shift+S", "F5", "Del") select the item wherever the focus is in
    /// the window.
    void InsertItem(unsigned short id, String const& text, Link const& link, String const& shortcut = {});
    /// Appends a line between items.
    void InsertSeparator();

    // Each does nothing for an unknown id.
    void EnableItem(unsigned short id, bool enable);
    /// Items are initially unchecked; selecting an item does not change this.
    void CheckItem(unsigned short id, bool check);
    [[nodiscard]] bool IsItemEnabled(unsigned short id) const noexcept;
    [[nodiscard]] bool IsItemChecked(unsigned short id) const noexcept;

    /// The id of the item that was selected last; initially 0.
    [[nodiscard]] unsigned short GetCurItemId() const noexcept { return current_; }

    /// Places the bar at the top of its parent with the parent's present width, and returns its height in
    /// pixels, where the rest of the window begins. For the parent's `Resize`.
    int Fit();

    void EntryWasSelected(int position) override;

  private:
    struct Item {
        unsigned short id = 0;  // 0 for a separator
        Link link{};
        bool isEnabled = true;
        bool isChecked = false;
    };

    [[nodiscard]] std::size_t PlaceOf(unsigned short id) const noexcept;

    std::vector<Item> items_;
    bool hasMenu_ = false;
    unsigned short current_ = 0;
};

}  // namespace sv
