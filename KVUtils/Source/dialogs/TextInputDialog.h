// TextInputDialog: a small dialog that asks for one line of text.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

namespace kv {

class TextInputDialog : public sv::ModalDialog, public RegisterTopWindow {
  public:
    /// `prompt` stands above the field.
    TextInputDialog(sv::Window* parent, sv::String const& title, sv::String const& prompt);

    /// Asks, with `text` in the field at first. 1 if the person has pressed OK, with what was typed in
    /// `text`; else 0, and `text` stays. Without a display it is 0 at once.
    unsigned char Input(sv::String& text);

  private:
    long OkHdl(KOBitmapButton* sender);
    long CancelHdl(KOBitmapButton* sender);

    sv::FixedText prompt_;
    sv::Edit edit_;
    KOBitmapButtonBar buttons_;
};

}  // namespace kv
