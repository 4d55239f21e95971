#include "KVUtils/Source/dialogs/TextInputDialog.h"

#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "SV/ui/Styles.h"

namespace kv {

namespace {

constexpr short Ok = 1;

// Pixels.
constexpr sv::Size Extent(380, 130);
constexpr sv::Point PromptPlace(16, 12);
constexpr sv::Size PromptExtent(348, 20);
constexpr sv::Point EditPlace(16, 38);
constexpr sv::Size EditExtent(348, 26);
constexpr sv::Point InputButtonPlace(112, 86);
constexpr sv::Size InputButtonExtent(120, 30);
constexpr sv::Point ButtonGap(12, 0);

}  // namespace

TextInputDialog::TextInputDialog(sv::Window* parent, sv::String const& title, sv::String const& prompt)
    : ModalDialog(parent, sv::StyleOfModalDialog),
      RegisterTopWindow(this),
      prompt_(this, sv::StyleOfText),
      edit_(this, sv::StyleOfEdit),
      buttons_(this, InputButtonPlace, InputButtonExtent, 1, ButtonGap) {
    SetText(title);
    ChangeSizePixel(Extent);
    WindowPlacer(parent, this, detail::CentreOnReference);
    prompt_.SetPosSizePixel(PromptPlace, PromptExtent);
    prompt_.ChangeBackgroundBrush(GetBackgroundBrush());
    prompt_.SetText(prompt);
    prompt_.Show();
    edit_.SetPosSizePixel(EditPlace, EditExtent);
    edit_.SetAccessibleName(prompt);
    edit_.Show();
    buttons_.AddButton(sv::Link::To<&TextInputDialog::OkHdl>(*this), detail::OkButton, 0);
    buttons_.AddButton(sv::Link::To<&TextInputDialog::CancelHdl>(*this), detail::CancelButton, 0);
}

unsigned char TextInputDialog::Input(sv::String& text) {
    edit_.SetText(text);
    edit_.GrabFocus();
    if (Execute() != Ok) return 0;
    text = edit_.GetText();
    return 1;
}

long TextInputDialog::OkHdl(KOBitmapButton* /*sender*/) {
    EndDialog(Ok);
    return 0;
}

long TextInputDialog::CancelHdl(KOBitmapButton* /*sender*/) {
    EndDialog(0);
    return 0;
}

}  // namespace kv
