// TextInputDialog: a dialog that asks for one line of text.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

namespace kv {

class TextInputDialog : public sv::ModalDialog, public RegisterTopWindow {
  public:
    /// `prompt` is shown above the field.
    TextInputDialog(sv::Window* parent, sv::String const& title, sv::String const& prompt);

    /// Shows the dialog with `text` in the field. Returns 1 and stores the input in `text` if the user
    /// pressed OK, otherwise returns 0; without a display, returns 0 at once.
    unsigned char Input(sv::String& text);

  private:
    long OkHdl(KOBitmapButton* sender);
    long CancelHdl(KOBitmapButton* sender);

    sv::FixedText prompt_;
    sv::Edit edit_;
    KOBitmapButtonBar buttons_;
};

}  // namespace kv
