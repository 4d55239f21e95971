#include "KVUtils/Source/controls/TextFenster.h"

#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"
#include "SV/ui/Backend.h"
#include "SV/ui/Styles.h"

#include <fstream>
#include <memory>
#include <string>

namespace kv {

namespace {

constexpr std::size_t LongestLine = 1000;

// Programs find the buttons by these flags.
constexpr long CloseFlag = 1;
constexpr long PrintFlag = 32;

// Pixels.
constexpr sv::Size ButtonExtent(120, 30);
constexpr sv::Point ButtonGap(50, 0);
constexpr int BelowList = 50;
constexpr int BelowBar = 11;
constexpr int CoutWidth = 600;
constexpr int CoutHeight = 440;

std::unique_ptr<TextFenster>& StandardOutput() {
    // Not destroyed when the process exits, as the window system may be gone by then.
    static auto& window = *new std::unique_ptr<TextFenster>;
    return window;
}

}  // namespace

TextFenster::TextFenster(sv::Window* parent, sv::String const& title, int width, int height)
    : ModelessDialog(parent, sv::StyleOfTextWindow),
      list_(this, sv::StyleOfLines),
      buttonBar_(this, {}, ButtonExtent, 1, ButtonGap) {
    buttonBar_.AddButton(sv::Link::To<&TextFenster::SchliessenHdl>(*this), detail::CloseButton, CloseFlag);
    SetText(title);
    ChangeSizePixel({width, height});
    TextFenster::Resize();
    if (parent != nullptr) WindowPlacer(parent, this, detail::Cascade);
    list_.ChangeFont(AppFonts::GetFixedAppFont());
    list_.Show();
    list_.GrabFocus();
}

void TextFenster::EnablePrinting() {
    buttonBar_.AddButton(sv::Link::To<&TextFenster::PrinterHdl>(*this), detail::PrintButton, PrintFlag);
    Resize();
}

void TextFenster::Resize() {
    sv::Size const size = GetSizePixel();
    list_.SetPosSizePixel({0, 0}, {size.Width(), size.Height() - BelowList});
    sv::Size const bar = buttonBar_.GetBarPosSizePixel().GetSize();
    buttonBar_.ChangePosPixel({(size.Width() - bar.Width()) / 2, size.Height() - bar.Height() - BelowBar});
}

void TextFenster::AddLine(sv::String const& line) {
    list_.InsertEntry(line);
    list_.SelectEntryPos(list_.GetEntryCount() - 1);
    list_.SelectEntryPos(sv::ListBox::End);
}

unsigned char TextFenster::IsEmpty() const { return list_.GetEntryCount() == 0 ? 1 : 0; }

void TextFenster::Clear() { list_.Clear(); }

void TextFenster::DateiAnzeigen(sv::String const& fileName) {
    SetText(GetText() + fileName);
    std::ifstream file(sv::FilePath(fileName));
    if (!file) {
        sv::ErrorBox(this, sv::WB_OK, sv::String("Could not open ") + fileName).Execute();
        return;
    }
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::string_view rest = line;
        do {
            list_.InsertEntry(rest.substr(0, LongestLine));
            rest.remove_prefix(std::min(rest.size(), LongestLine));
        } while (!rest.empty());
    }
    list_.SelectEntryPos(0);
    isClosed_ = 0;
}

void TextFenster::AnzeigenUndWarten(unsigned char evenIfEmpty) {
    isClosed_ = 0;
    if (IsEmpty() != 0 && evenIfEmpty == 0) return;
    Show();
    // `Reschedule` waits while nothing happens.
    while (isClosed_ == 0 && sv::detail::CurrentBackend().HasDisplay()) sv::Application::Reschedule();
}

TextFenster& TextFenster::operator<<(sv::String const& text) {
    std::string_view rest = text.View();
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        AddLine(std::exchange(Pending(), {}) + rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    Pending() += rest;
    if (!IsVisible()) Show();
    return *this;
}

unsigned char TextFenster::CopyToFile(std::FILE* file) const {
    for (int i = 0; i < list_.GetEntryCount(); ++i) {
        std::fputs(list_.GetEntry(i).GetStr(), file);
        std::fputc('\n', file);
    }
    return 1;
}

void TextFenster::CreateCout() {
    StandardOutput() =
        std::make_unique<TextFenster>(nullptr, "Standard Ausgabe (cout)", CoutWidth, CoutHeight);
}

void TextFenster::DeleteCout() { StandardOutput().reset(); }

TextFenster* TextFenster::GetCout() noexcept { return StandardOutput().get(); }

sv::String& TextFenster::Pending() {
    static sv::String pending;
    return pending;
}

void TextFenster::WasClosed() {
    ModelessDialog::WasClosed();
    isClosed_ = 1;
}

long TextFenster::SchliessenHdl(KOBitmapButton* /*sender*/) {
    isClosed_ = 1;
    return 0;
}

long TextFenster::PrinterHdl(KOBitmapButton* /*sender*/) {
    MyPrinter* const printer = MyPrinter::Instance();
    if (printer == nullptr) return 0;
    printer->DefHeadLine(1);
    printer->DefFootNote(1);
    if (printer->Start(1) == 0) return 0;
    for (int i = 0; i < list_.GetEntryCount(); ++i) {
        printer->WriteString(list_.GetEntry(i), 0);
        printer->WriteLn(1);
    }
    printer->End();
    return 0;
}

}  // namespace kv
