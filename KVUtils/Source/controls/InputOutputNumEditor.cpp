#include "KVUtils/Source/controls/InputOutputNumEditor.h"

#include "SV/ui/Styles.h"

namespace kv {

InputOutputNumEditor::InputOutputNumEditor(sv::Window* parent, sv::Point pos, int digits)
    : NumEditor(parent, pos, digits), output_(parent, sv::StyleOfNumberText) {
    output_.SetPosSizePixel(pos, SizeOfDigits(digits));
    if (parent != nullptr) output_.ChangeBackgroundBrush(parent->GetBackgroundBrush());
}

void InputOutputNumEditor::showAktValue() {
    output_.SetText(myString(getValue()) + ' ' + GetUnit());
    NumEditor::showAktValue();
}

void InputOutputNumEditor::OutputOnly(unsigned char outputOnly) {
    NumEditor::Show(outputOnly == 0);
    if (outputOnly != 0) showAktValue();
    output_.Show(outputOnly != 0);
}

void InputOutputNumEditor::Show(bool visible) {
    NumEditor::Show(visible);
    if (!visible) output_.Hide();
}

sv::Point InputOutputNumEditor::ChangePosPixel(sv::Point position) {
    output_.ChangePosPixel(position);
    return NumEditor::ChangePosPixel(position);
}

}  // namespace kv
