#include "KVUtils/Source/printing/MyPrinter.h"

#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/printing/AbortDialog.h"
#include "KVUtils/Source/printing/detail/PageLayout.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/International.h"

#include <chrono>
#include <thread>

namespace kv {

namespace {

/// From points to tenths of a millimetre, with some leading.
constexpr double UnitsPerPoint = 3.75;
constexpr std::chrono::milliseconds WaitForJob{100};
/// Loop iterations until a window is shown or hidden.
constexpr int TurnsToShow = 10;

sv::Font OnPaper(sv::Font font) {
    font.ChangeSize({0, static_cast<int>(font.GetHeight() * UnitsPerPoint)});
    return font;
}

sv::Font Bold(sv::Font font) {
    font.ChangeWeight(sv::FontWeight::Bold);
    return font;
}

sv::String Stamp() {
    return sv::International::GetDate(sv::Date()) + "   " +
           sv::International::GetTime(sv::Time(), true, false);
}

}  // namespace

constinit MyPrinter* MyPrinter::instance_ = nullptr;

MyPrinter::MyPrinter(sv::String const& printerName)
    : Printer(printerName),
      texts_("MyPrinter"),
      edges_(std::make_unique<detail::PageEdges>()),
      titleFont_(OnPaper(Bold(AppFonts::GetBigPrinterFont()))),
      subtitleFont_(OnPaper(Bold(AppFonts::GetNormalPrinterFont()))),
      normalFont_(OnPaper(AppFonts::GetNormalPrinterFont())) {
    ChangeMapMode(sv::MapMode(sv::MapUnit::TenthMillimetre));
    DruckEkpunkteNeuRechnen();
    ToTopLeft();
    Normal();
}

MyPrinter::~MyPrinter() { instance_ = nullptr; }

MyPrinter* MyPrinter::CreateMyPrinter(sv::String const& printerName) {
    return Create(instance_, [&] { return new MyPrinter(printerName); });
}

// Intentional: the missing service is named after the one that an application creates before its printer.
MyPrinter* MyPrinter::Instance() { return InstanceOrNull(instance_, "Language"); }

void MyPrinter::DruckEkpunkteNeuRechnen() {
    *edges_ = detail::EdgesOf(PixelToLogic(GetPaperSizePixel()), PixelToLogic(GetPageOffsetPixel()),
                              GetOutputSize().Height());
}

void MyPrinter::ToTopLeft() noexcept { cursor_ = {edges_->left, edges_->top}; }

unsigned char MyPrinter::Start(unsigned char showAbort) {
    DruckEkpunkteNeuRechnen();
    ToTopLeft();
    pageNumber_ = 1;
    while (IsPrinting() || IsSpooling()) {
        sv::Application::Reschedule();
        std::this_thread::sleep_for(WaitForJob);
    }
    PrepareDialog(showAbort);
    if (!StartJob({})) {
        sv::ErrorBox(nullptr, sv::WB_OK, texts_[0]).Execute();
        return 0;
    }
    StartPage();
    if (hasHeadLine_ != 0) WriteHeadLine();
    return 1;
}

void MyPrinter::PrepareDialog(unsigned char showAbort) {
    if (abortDialog_ == nullptr)
        abortDialog_ = std::make_unique<AbortDialog>(sv::Application::GetAppWindow(), GetName());
    abortDialog_->SetPrinterName(GetName());
    ChangeStartPrintHdl(showAbort != 0 ? sv::Link::To<&MyPrinter::ShowAbbrechen>(*this) : sv::Link());
    ChangeEndPrintHdl(sv::Link::To<&MyPrinter::HideAbbrechen>(*this));
}

void MyPrinter::NewPage() {
    if (hasFootNote_ != 0) WriteFootNote();
    EndPage();
    ToTopLeft();
    ++pageNumber_;
    StartPage();
    if (hasHeadLine_ != 0) WriteHeadLine();
}

void MyPrinter::End() {
    if (hasFootNote_ != 0) WriteFootNote();
    EndPage();
    EndJob();
    pageNumber_ = 1;
}

sv::Point MyPrinter::maxCurPos() const {
    return {edges_->right, detail::BodyBottom(*edges_, LineHeight(), hasFootNote_ != 0)};
}

void MyPrinter::WriteLn(int lines) {
    int const height = LineHeight();
    cursor_.Y() = static_cast<std::int16_t>(cursor_.Y() + height * lines);
    if (detail::IsPageFull(cursor_.Y(), height, maxCurPos().Y())) NewPage();
}

void MyPrinter::WriteString(sv::String const& text, int xOffset) {
    DrawText(cursor_ + sv::Point(xOffset, 0), text);
}

void MyPrinter::WriteAtRight(sv::String const& text) {
    DrawText({edges_->right - GetTextSize(text).Width(), cursor_.Y()}, text);
}

void MyPrinter::DrawRule(int y) { DrawLine({cursor_.X(), y}, {edges_->right, y}); }

void MyPrinter::WriteHeadLine() {
    if (headerType_ == KV_HF_NONE) return;
    Normal();
    auto const [rule, body] = detail::PlaceHead(cursor_.Y(), LineHeight());
    // Intentional: the footer's type decides, so that a report turns both off by one setting.
    if (footerType_ == KV_HF_FULL) {
        WriteString(KVSetting::Instance()->GetBenutzername(), 0);
        WriteAtRight(Stamp());
        DrawRule(rule);
    }
    cursor_.Y() = static_cast<std::int16_t>(body);
}

void MyPrinter::WriteFootNote() {
    if (footerType_ == KV_HF_NONE) return;
    Normal();
    auto const [rule, text] = detail::PlaceFoot(*edges_, LineHeight());
    cursor_ = {edges_->left, text};
    if (footerType_ != KV_HF_FULL) return;
    DrawRule(rule);
    if (AppName const* const name = AppName::Instance()) WriteString(name->GetTitel(), 0);
    WriteAtRight(sv::String(pageNumber_));
}

void MyPrinter::ShowDialog() {
    if (abortDialog_ != nullptr) abortDialog_->Show();
}

void MyPrinter::ShowForMoment(bool visible) {
    if (abortDialog_ == nullptr) return;
    abortDialog_->Show(visible);
    for (int turn = 0; turn < TurnsToShow; ++turn) sv::Application::Reschedule();
}

long MyPrinter::ShowAbbrechen(sv::Printer* /*sender*/) {
    ShowForMoment(true);
    return 0;
}

long MyPrinter::HideAbbrechen(sv::Printer* /*sender*/) {
    ShowForMoment(false);
    return 0;
}

}  // namespace kv
