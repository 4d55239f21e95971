#include "Apps/ColourDesk/DeskMessages.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "KVUtils/Source/printing/MyPrinter.h"

namespace colourdesk {

namespace {

constexpr sv::Size Extent(640, 360);  // pixels

}  // namespace

void DeskMessages::Add(sv::String const& line) {
    lines_.push_back(line);
    if (window_ != nullptr) window_->AddLine(line);
}

// The window is kept until the next call: its button may be pressed in its own nested loop.
void DeskMessages::Show() {
    if (window_ != nullptr && window_->IsVisible()) return window_->ToTop();
    window_ =
        std::make_unique<kv::TextFenster>(&parent_, TextOf(Label::Messages), Extent.Width(), Extent.Height());
    for (sv::String const& line : lines_) window_->AddLine(line);
    if (!kv::MyPrinter::IsInstantiated()) kv::MyPrinter::CreateMyPrinter({});
    window_->EnablePrinting();
    window_->AnzeigenUndWarten(1);
    window_->Hide();
}

void DeskMessages::Close() {
    if (window_ != nullptr) window_->WasClosed();
}

void DeskMessages::Enable(bool enable) {
    if (window_ != nullptr) window_->Enable(enable);
}

void DeskMessages::UpdateTexts() {
    if (window_ != nullptr) window_->SetText(TextOf(Label::Messages));
}

}  // namespace colourdesk
