#include "KVUtils/Source/controls/EnterNumber.h"

#include "SV/ui/Styles.h"

namespace kv {

EnterNumber::EnterNumber(sv::Window* parent, sv::String const& title, int digits)
    : ModalDialog(parent, sv::StyleOfModalDialog), RegisterTopWindow(this), editor_(this, {10, 10}, digits) {
    SetPosSizePixel({10, 10}, {300, 100});
    ModalDialog::Enable();
    SetText(title);
}

void EnterNumber::Edit(double& value, double minimum, double maximum) {
    editor_.setValue(value);
    editor_.setRange(minimum, maximum);
    Execute();
    value = editor_.getValue();
}

}  // namespace kv
