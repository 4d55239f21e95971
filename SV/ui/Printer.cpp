#include "SV/ui/Printer.h"

#include "SV/ui/Backend.h"

#include <utility>

namespace sv {

Printer::Printer(String const& name)
    : name_(name),
      peer_(detail::CurrentBackend().MakePrinter(name)),
      geometry_(std::make_unique<detail::PageGeometry>(peer_->Geometry(setup_))) {}

Printer::~Printer() {
    if (isPrinting_) peer_->AbortJob();
}

void Printer::TakeSetup(PageSetup const& setup) {
    if (isPrinting_ || setup.paper.Width() < 1 || setup.paper.Height() < 1) return;
    setup_ = setup;
    *geometry_ = peer_->Geometry(setup_);
}

Size Printer::ChangePaperSize(Size size) {
    Size const before = setup_.paper;
    TakeSetup({size, setup_.orientation});
    return before;
}

Orientation Printer::ChangeOrientation(Orientation orientation) {
    Orientation const before = setup_.orientation;
    TakeSetup({setup_.paper, orientation});
    return before;
}

Size Printer::GetPaperSizePixel() const noexcept { return geometry_->paper; }
Size Printer::GetPageOffsetPixel() const noexcept { return {geometry_->offset.X(), geometry_->offset.Y()}; }
Size Printer::GetOutputSizePixel() const noexcept { return geometry_->output; }
unsigned long Printer::GetColorCount() const { return peer_->ColorCount(); }

bool Printer::StartJob(String const& name) {
    if (isPrinting_) return false;
    hasFailed_ = !peer_->StartJob({name.IsEmpty() ? document_.title : name, setup_, document_});
    if (hasFailed_) return false;
    isPrinting_ = true;
    startPrint_.Call(this);
    return true;
}

bool Printer::StartPage() {
    if (!isPrinting_ || isPageOpen_) return false;
    isPageOpen_ = peer_->StartPage();
    return isPageOpen_;
}

bool Printer::EndPage() {
    if (!std::exchange(isPageOpen_, false)) return false;
    peer_->EndPage();
    return true;
}

bool Printer::EndJob() {
    if (!isPrinting_) return false;
    EndPage();
    isSpooling_ = true;
    hasFailed_ = !peer_->EndJob();
    isSpooling_ = false;
    isPrinting_ = false;
    endPrint_.Call(this);
    return !hasFailed_;
}

void Printer::AbortJob() {
    if (!isPrinting_) return;
    isPageOpen_ = false;
    isPrinting_ = false;
    hasFailed_ = true;
    peer_->AbortJob();
    endPrint_.Call(this);
}

Link Printer::ChangeStartPrintHdl(Link const& link) noexcept { return std::exchange(startPrint_, link); }
Link Printer::ChangeEndPrintHdl(Link const& link) noexcept { return std::exchange(endPrint_, link); }

detail::Canvas& Printer::GetCanvas() const { return peer_->GetCanvas(); }
double Printer::PixelsPerTenthMillimetre() const noexcept { return geometry_->pixelsPerTenthMillimetre; }

}  // namespace sv
