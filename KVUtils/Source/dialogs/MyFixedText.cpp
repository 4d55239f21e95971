#include "KVUtils/Source/dialogs/MyFixedText.h"

#include "SV/core/Mnemonic.h"
#include "SV/ui/Styles.h"

namespace kv {

MyFixedText::MyFixedText(sv::Window* parent, sv::Point position, sv::String const& text)
    : FixedText(parent, sv::StyleOfText) {
    if (parent != nullptr) ChangeBackgroundBrush(parent->GetBackgroundBrush());
    ChangePosPixel(position);
    ChangeText(text);
    Show();
}

void MyFixedText::ChangeText(sv::String const& text) {
    SetText(text);
    ChangeSizePixel(GetTextSize(sv::WithoutMnemonic(text)));
}

}  // namespace kv
