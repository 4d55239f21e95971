#include "Apps/ColourDesk/DeskWindow.h"

#include "Apps/ColourDesk/DeskLayout.h"
#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "SV/core/Application.h"

#include <algorithm>
#include <utility>

namespace colourdesk {

namespace {

constexpr char const* ProgramName = "ColourDesk";

// Pixels.
constexpr sv::Size FirstSize(1180, 760);
constexpr sv::Size MessagesSize(640, 360);

constexpr sv::Brush Ground(sv::Color(0xF4F4, 0xF4F4, 0xF2F2));

sv::String Count(std::size_t count) { return std::to_string(count); }

}  // namespace

DeskWindow::DeskWindow(sv::String textStem, Draw draw)
    : Window(nullptr), textStem_(std::move(textStem)), draw_(std::move(draw)) {
    sv::Application::SetAppWindow(this);
    SetText(ProgramName);
    ChangeBackgroundBrush(Ground);
    conditions_.ChangeConditionHdl(sv::Link::To<&DeskWindow::ConditionHdl>(*this));
    conditions_.ChangeLanguageHdl(sv::Link::To<&DeskWindow::LanguageHdl>(*this));
    judgement_.ChangeToleranceHdl(sv::Link::To<&DeskWindow::ConditionHdl>(*this));
    judgement_.ChangeStandardHdl(sv::Link::To<&DeskWindow::UseAsStandardHdl>(*this));
    judgement_.ChangePaperHdl(sv::Link::To<&DeskWindow::UseAsPaperHdl>(*this));
    samples_.ChangeSelectHdl(sv::Link::To<&DeskWindow::SelectHdl>(*this));
    plot_.ChangeCursorHdl(sv::Link::To<&DeskWindow::CursorHdl>(*this));
    for (sv::Window* const part :
         std::initializer_list<sv::Window*>{&conditions_, &samples_, &plot_, &judgement_, &status_}) {
        if (part != &samples_) part->ChangeBackgroundBrush(Ground);
        part->Show();
    }
    TakeTexts();
    ChangeSizePixel(FirstSize);
    conditions_.Show(evaluation::SheetConditions());
    judgement_.Show(evaluation::Tolerances(), {}, {});
    ShowCommands();
    ShowStatus();
    samples_.GrabFocus();
}

DeskWindow::~DeskWindow() {
    // The printer's window stands over this one.
    if (kv::MyPrinter* const printer = kv::MyPrinter::Instance()) {
        kv::KVSingleton::Destroy(printer);
    }
    sv::Application::SetAppWindow(nullptr);
}

void DeskWindow::TakeTexts() {
    MakeMenu();
    MakeButtons();
    conditions_.TakeTexts();
    judgement_.TakeTexts();
    samples_.TakeChanges();
    samples_.SetAccessibleName(TextOf(ColumnTitle::Sample));
    plot_.TakeTexts();
    plot_.SetAccessibleName(TextOf(Label::Reflectance));
    if (messages_ != nullptr) messages_->SetText(TextOf(Label::Messages));
    DeskWindow::Resize();
}

void DeskWindow::Resize() {
    if (buttons_ == nullptr) return;
    sv::Size const buttons = buttons_->GetBarPosSizePixel().GetSize();
    DeskLayout const layout = Arrange(
        GetSizePixel(), {menu_->Fit(), GetTextSize("0").Height(), buttons.Width(), judgement_.GetWidth()});
    buttons_->ChangePosPixel(layout.buttons);
    auto const place = [](sv::Window& window, sv::Rectangle const& area) {
        window.SetPosSizePixel(area.TopLeft(), area.GetSize());
    };
    place(conditions_, layout.conditions);
    place(samples_, layout.table);
    place(plot_, layout.plot);
    place(judgement_, layout.panel);
    place(status_, layout.status);
}

bool DeskWindow::Open(std::string const& path) {
    try {
        files::MeasurementFile file = files::ReadMeasurementFile(path);
        for (std::string const& note : file.notes) Say(files::ToSuite(file.path + ": " + note));
        ShowFile(std::move(file));
        isUnsaved_ = false;
        return true;
    } catch (files::ReadError const& error) {
        ShowError(files::ToSuite(error.what()));
        return false;
    }
}

// What was chosen before stays, but for what the file states.
void DeskWindow::ShowFile(files::MeasurementFile file) {
    evaluation::SheetConditions conditions;
    conditions_.Read(conditions);
    judgement_.Read(conditions.tolerances);
    if (file.stated.illuminant) conditions.illuminant = *file.stated.illuminant;
    if (file.stated.observer) conditions.observer = *file.stated.observer;
    samples_.ShowSheet(nullptr);
    plot_.ShowNothing();
    sheet_.emplace(std::move(file));
    samples_.ShowSheet(&*sheet_);
    SetText(sv::String(files::ToSuite(sheet_->File().path)) + " - " + ProgramName);
    Recompute(conditions);
    SelectSamples({0});
}

void DeskWindow::Recompute(evaluation::SheetConditions const& conditions) {
    sheet_->Change(conditions);
    samples_.TakeChanges();
    auto const nameOf = [this](std::optional<std::size_t> sample) {
        return sample ? sv::String(files::ToSuite(sheet_->File().samples[*sample].name)) : sv::String();
    };
    evaluation::SheetConditions const& inForce = sheet_->Conditions();
    conditions_.Show(inForce);
    judgement_.Show(inForce.tolerances, nameOf(inForce.standard), nameOf(inForce.paper));
    ShowStatus();
}

void DeskWindow::SelectSamples(std::vector<int> samples) {
    samples_.SelectRows(std::move(samples));
    ShowSelection();
}

void DeskWindow::ShowSelection() {
    if (sheet_) plot_.ShowSamples(sheet_->File(), samples_.GetSelectedRows());
    ShowCommands();
    ShowStatus();
}

sv::String DeskWindow::PointedValue() const {
    auto const selected = samples_.GetSelectedRows();
    auto const cursor = plot_.GetCursorIndex();
    if (!cursor || selected.empty()) return {};
    files::Sample const& sample = sheet_->File().samples[static_cast<std::size_t>(selected.front())];
    return Filled(TextOf(Label::Pointer),
                  {std::to_string(static_cast<int>(kv::Wavelength(*cursor))),
                   kv::GString(sample.spectrum[*cursor], 4), files::ToSuite(sample.name)});
}

void DeskWindow::ShowStatus() {
    if (!sheet_) return status_.SetText(TextOf(Label::NothingOpen));
    std::size_t const selected = samples_.GetSelectedRows().size();
    std::vector<sv::String> parts = {
        Filled(TextOf(Label::Counts), {Count(sheet_->Rows().size()), Count(selected)})};
    if (selected > SpectrumPlot::MostCurves) {
        parts.push_back(
            Filled(TextOf(Label::NotPlotted), {Count(SpectrumPlot::MostCurves), Count(selected)}));
    }
    evaluation::SheetVerdict const& verdict = sheet_->Verdict();
    if (verdict.whereLargest) {
        parts.push_back(Filled(TextOf(Label::Verdict),
                               {Count(verdict.within), Count(verdict.judged), kv::GString(verdict.largest, 2),
                                files::ToSuite(sheet_->File().samples[*verdict.whereLargest].name)}));
    } else {
        parts.push_back(TextOf(Label::NotJudged));
    }
    if (sv::String const pointed = PointedValue(); !pointed.IsEmpty()) parts.push_back(pointed);
    sv::String text;
    for (sv::String const& part : parts) text += text.IsEmpty() ? part : sv::String("   \xB7   ") + part;
    status_.SetText(text);
}

void DeskWindow::SetBusy(bool isBusy) {
    isBusy_ = isBusy;
    Enable(!isBusy);
    if (messages_ != nullptr) messages_->Enable(!isBusy);
    ShowCommands();
}

void DeskWindow::ToggleUse(std::optional<std::size_t> evaluation::SheetConditions::*role,
                           std::size_t sample) {
    if (!sheet_) return;
    evaluation::SheetConditions conditions = sheet_->Conditions();
    conditions.*role = conditions.*role == sample ? std::nullopt : std::optional(sample);
    Recompute(conditions);
}

void DeskWindow::UseAsStandard(std::size_t sample) {
    ToggleUse(&evaluation::SheetConditions::standard, sample);
}
void DeskWindow::UseAsPaper(std::size_t sample) { ToggleUse(&evaluation::SheetConditions::paper, sample); }
void DeskWindow::PutCursor(int wavelengthIndex) {
    plot_.MoveCursor(wavelengthIndex - plot_.GetCursorIndex().value_or(0));
}

void DeskWindow::SpeakLanguage(unsigned short entry) {
    kv::Language::SetLanguage(entry);
    kv::Text::FreeResources();
    kv::Text::LoadText(textStem_, kv::Language::GetCountryCode());
    TakeTexts();
    if (sheet_) {
        Recompute(sheet_->Conditions());
    } else {
        judgement_.Show(evaluation::Tolerances(), {}, {});
    }
    ShowCommands();
    ShowStatus();
}

void DeskWindow::Say(sv::String const& line) {
    log_.push_back(line);
    if (messages_ != nullptr) messages_->AddLine(line);
}

// The window stays as long as this one once it was asked for; its button only ends the waiting.
void DeskWindow::ShowMessages() {
    if (messages_ != nullptr && messages_->IsVisible()) return messages_->ToTop();
    messages_ = std::make_unique<kv::TextFenster>(this, TextOf(Label::Messages), MessagesSize.Width(),
                                                  MessagesSize.Height());
    for (sv::String const& line : log_) messages_->AddLine(line);
    if (!kv::MyPrinter::IsInstantiated()) kv::MyPrinter::CreateMyPrinter({});
    messages_->EnablePrinting();
    messages_->AnzeigenUndWarten(1);
    messages_->Hide();
}

void DeskWindow::WasClosed() {
    if (isBusy_ || !MayGiveUp()) return;
    if (messages_ != nullptr) messages_->WasClosed();
    sv::Application::Quit();
}

long DeskWindow::ConditionHdl(void* /*sender*/) {
    if (!sheet_) return 0;
    evaluation::SheetConditions conditions = sheet_->Conditions();
    conditions_.Read(conditions);
    judgement_.Read(conditions.tolerances);
    Recompute(conditions);
    return 0;
}

long DeskWindow::LanguageHdl(void* /*sender*/) {
    SpeakLanguage(conditions_.GetLanguageEntry());
    return 0;
}

long DeskWindow::SelectHdl(void* /*sender*/) {
    ShowSelection();
    return 0;
}

long DeskWindow::CursorHdl(void* /*sender*/) {
    ShowStatus();
    return 0;
}

}  // namespace colourdesk
