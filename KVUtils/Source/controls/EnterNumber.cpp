#include "KVUtils/Source/controls/EnterNumber.h"

namespace kv {

namespace {

constexpr sv::Window::Style DialogStyle = 0x120;

}  // namespace

EnterNumber::EnterNumber(sv::Window* parent, sv::String const& title, int digits)
    : ModalDialog(parent, DialogStyle), RegisterTopWindow(this), editor_(this, {10, 10}, digits) {
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
