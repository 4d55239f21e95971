#include "KVUtils/Source/printing/AbortDialog.h"

#include "KVUtils/Source/printing/MyPrinter.h"
#include "SV/ui/Styles.h"

namespace kv {

namespace {

// Pixels.
constexpr sv::Size Extent(360, 128);
constexpr sv::Point FirstTextPlace(16, 14);
constexpr sv::Point SecondTextPlace(16, 38);
constexpr sv::Size TextExtent(328, 20);
constexpr sv::Point ButtonPlace(120, 82);
constexpr sv::Size ButtonExtent(120, 30);

void Place(sv::Window& control, sv::Point position, sv::Size size) {
    control.SetPosSizePixel(position, size);
    control.Show();
}

}  // namespace

ModelessDialogABORTPRINT::ModelessDialogABORTPRINT(sv::Window* parent, DialogResource const& resource)
    : ModelessDialog(parent, sv::StyleOfWaitWindow),
      aText1(this, sv::StyleOfText),
      aText2(this, sv::StyleOfText),
      aButton(this, sv::StyleBitDefaultButton),
      resource_(resource) {
    ChangeSizePixel(Extent);
    Place(aText1, FirstTextPlace, TextExtent);
    Place(aText2, SecondTextPlace, TextExtent);
    Place(aButton, ButtonPlace, ButtonExtent);
    for (sv::FixedText* const text : {&aText1, &aText2}) text->ChangeBackgroundBrush(GetBackgroundBrush());
    aButton.ChangeClickHdl(sv::Link::To<&ModelessDialogABORTPRINT::ButtonHdl>(*this));
}

void ModelessDialogABORTPRINT::WasClosed() { aButton.Click(); }

long ModelessDialogABORTPRINT::ButtonHdl(sv::PushButton* sender) { return aButtonLink.Call(sender); }

AbortDialog::AbortDialog(sv::Window* parent, sv::String const& printerName)
    : ModelessDialogABORTPRINT(parent, ABORTPRINT), texts_("AbortDialog") {
    SetText(texts_[0]);
    aText1.SetText(texts_[1]);
    aButton.SetText(texts_[2]);
    aButtonLink = sv::Link::To<&AbortDialog::AbortHdl>(*this);
    SetPrinterName(printerName);
}

void AbortDialog::SetPrinterName(sv::String const& printerName) {
    aText2.SetText(printerName);
    // A screen reader reads this text without the line above it.
    aText2.SetAccessibleName(texts_[1] + " " + printerName);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): a link calls an object's function
long AbortDialog::AbortHdl(sv::PushButton* /*sender*/) {
    if (MyPrinter::IsInstantiated()) MyPrinter::Instance()->AbortJob();
    return 0;
}

}  // namespace kv
