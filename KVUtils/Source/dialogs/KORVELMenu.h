// KORVELMenu: the menu bar of an application's window, with translated texts.
#pragma once

#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/ui/MenuBar.h"

namespace kv {

/// Shown at the top of its window when it is constructed. Texts are numbers in one text group.
class KORVELMenu : public sv::MenuBar {
  public:
    /// Load the file of the group first.
    KORVELMenu(sv::Window* parent, sv::String const& groupName);

    /// Appends a menu.
    void AddMenu(unsigned long text);
    /// Appends an item to the menu that was added last, like `InsertItem`.
    void AddItem(unsigned short id, unsigned long text, sv::Link const& link,
                 sv::String const& shortcut = {});

  private:
    TextSegment texts_;
};

}  // namespace kv
