// KORVELMenu: the menus of an application's window, with its translated texts.
#pragma once

#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/ui/MenuBar.h"

namespace kv {

/// Shown at once at the top of its window. Texts are those of one group, by their numbers in it.
class KORVELMenu : public sv::MenuBar {
  public:
    /// The group's file has to be loaded before.
    KORVELMenu(sv::Window* parent, sv::String const& groupName);

    /// Adds a menu behind the others.
    void AddMenu(unsigned long text);
    /// Adds an item to the menu that was added last, as `InsertItem` does.
    void AddItem(unsigned short id, unsigned long text, sv::Link const& link,
                 sv::String const& shortcut = {});

  private:
    TextSegment texts_;
};

}  // namespace kv
