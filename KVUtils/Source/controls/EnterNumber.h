// EnterNumber: a small dialog that asks for one number.
#pragma once

#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/ui/Dialog.h"

namespace kv {

/// However the dialog is closed, the number in its field is the answer: there is no way to cancel it.
class EnterNumber : public sv::ModalDialog, public RegisterTopWindow {
  public:
    /// With a field of so many digits.
    EnterNumber(sv::Window* parent, sv::String const& title, int digits);

    /// Shows the dialog with `value`, waits until it is closed, and puts the number into `value`. Without a
    /// display the number stays, even outside the range.
    void Edit(double& value, double minimum, double maximum);

  private:
    NumEditor editor_;
};

}  // namespace kv
