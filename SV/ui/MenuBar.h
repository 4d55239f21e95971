// sv::MenuBar: the line of menus at the top of a window.
#pragma once

#include "SV/core/Link.h"
#include "SV/ui/Window.h"

#include <vector>

namespace sv {

/// Filled once, menu by menu, each from the top down. In every text a "~" stands before the letter that
/// chooses it from the keyboard.
///     MenuBar menu(&window);
///     menu.InsertMenu("~File");
///     menu.InsertItem(OpenId, "~Open...", Link::To<&Desk::OpenHdl>(*this), "Ctrl+O");
class MenuBar : public Window {
  public:
    explicit MenuBar(Window* parent, Style style = 0);

    /// Adds a menu, empty at first, behind the others.
    void InsertMenu(String const& title);
    // Each at the end of the menu that was added last; without a menu it adds nothing.
    /// The link is called with the bar as sender. `id` is the caller's own, and not 0. The keys of `shortcut`
    /// ("Ctrl+O", "Ctrl+Shift+S", "F5", "Del") choose the item wherever the focus is in the window.
    void InsertItem(unsigned short id, String const& text, Link const& link, String const& shortcut = {});
    /// A line between items.
    void InsertSeparator();

    // An id that no item has changes nothing; it is neither enabled nor checked.
    void EnableItem(unsigned short id, bool enable);
    /// Items are unchecked at first, and are so again only by this.
    void CheckItem(unsigned short id, bool check);
    [[nodiscard]] bool IsItemEnabled(unsigned short id) const noexcept;
    [[nodiscard]] bool IsItemChecked(unsigned short id) const noexcept;

    /// Of the item that was chosen last; 0 before.
    [[nodiscard]] unsigned short GetCurItemId() const noexcept { return current_; }

    /// Puts the bar at the top of its parent, as wide as that is now, and returns its height in pixels: there
    /// the rest of the window begins. For the parent's `Resize`.
    int Fit();

    void EntryWasSelected(unsigned short position) override;

  private:
    struct Item {
        unsigned short id = 0;  // of a line 0
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
