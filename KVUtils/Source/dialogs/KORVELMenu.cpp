#include "KVUtils/Source/dialogs/KORVELMenu.h"

namespace kv {

KORVELMenu::KORVELMenu(sv::Window* parent, sv::String const& groupName) : MenuBar(parent), texts_(groupName) {
    Fit();
    Show();
}

void KORVELMenu::AddMenu(unsigned long text) { InsertMenu(texts_[text]); }

void KORVELMenu::AddItem(unsigned short id, unsigned long text, sv::Link const& link,
                         sv::String const& shortcut) {
    InsertItem(id, texts_[text], link, shortcut);
}

}  // namespace kv
