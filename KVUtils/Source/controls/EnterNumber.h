// EnterNumber: a small dialog that asks for one number.
#pragma once

#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/ui/Dialog.h"

namespace kv {

/// The number in the field is the result however the dialog is closed; it can't be cancelled.
class EnterNumber : public sv::ModalDialog, public RegisterTopWindow {
  public:
    /// With a field of this many digits.
    EnterNumber(sv::Window* parent, sv::String const& title, int digits);

    /// Shows the dialog with `value`, waits until it is closed, and sets `value` to the number. Without a
    /// display `value` is unchanged, even outside the range.
    void Edit(double& value, double minimum, double maximum);

  private:
    NumEditor editor_;
};

}  // namespace kv
