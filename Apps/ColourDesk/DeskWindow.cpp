#include "Apps/ColourDesk/DeskWindow.h"

#include "Apps/ColourDesk/DeskLayout.h"
#include "Apps/ColourDesk/DeskMeasuring.h"
#include "Apps/ColourDesk/DeskStatus.h"
#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "KVUtils/Source/frame/Language.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "SV/core/Application.h"

#include <numeric>
#include <utility>

namespace colourdesk {

namespace {

constexpr char const* ProgramName = "ColourDesk";
constexpr sv::Size FirstSize(1180, 760);  // pixels
constexpr sv::Brush Ground(sv::Color(0xF4F4, 0xF4F4, 0xF2F2));

std::optional<std::size_t> Toggled(std::optional<std::size_t> current, std::size_t sample) {
    return current == sample ? std::nullopt : std::optional(sample);
}

}  // namespace

DeskWindow::DeskWindow(sv::String textStem, Draw draw)
    : Window(nullptr), textStem_(std::move(textStem)), draw_(std::move(draw)) {
    sv::Application::SetAppWindow(this);
    SetText(ProgramName);
    ChangeBackgroundBrush(Ground);
    conditions_.ChangeConditionHdl(sv::Link::To<&DeskWindow::ConditionHdl>(*this));
    conditions_.ChangeLanguageHdl(sv::Link::To<&DeskWindow::LanguageHdl>(*this));
    tolerances_.ChangeToleranceHdl(sv::Link::To<&DeskWindow::ConditionHdl>(*this));
    tolerances_.ChangeStandardHdl(sv::Link::To<&DeskWindow::UseAsStandardHdl>(*this));
    tolerances_.ChangePaperHdl(sv::Link::To<&DeskWindow::UseAsPaperHdl>(*this));
    samples_.ChangeSelectHdl(sv::Link::To<&DeskWindow::SelectHdl>(*this));
    plot_.ChangeCursorHdl(sv::Link::To<&DeskWindow::CursorHdl>(*this));
    for (sv::Window* const part :
         std::initializer_list<sv::Window*>{&conditions_, &samples_, &plot_, &tolerances_, &status_}) {
        if (part != &samples_) part->ChangeBackgroundBrush(Ground);
        part->Show();
    }
    UpdateTexts();
    ChangeSizePixel(FirstSize);
    ShowConditions({});
    samples_.GrabFocus();
}

DeskWindow::~DeskWindow() {
    // The printer's window has this one as its parent.
    if (kv::MyPrinter* const printer = kv::MyPrinter::Instance()) {
        kv::KVSingleton::Destroy(printer);
    }
    sv::Application::SetAppWindow(nullptr);
}

void DeskWindow::UpdateTexts() {
    commands_.UpdateTexts();
    conditions_.UpdateTexts();
    tolerances_.UpdateTexts();
    samples_.Update();
    samples_.SetAccessibleName(TextOf(ColumnTitle::Sample));
    plot_.UpdateTexts();
    plot_.SetAccessibleName(TextOf(Label::Reflectance));
    messages_.UpdateTexts();
    DeskWindow::Resize();
    ShowCommands();
    ShowStatus();
}

void DeskWindow::Resize() {
    DeskLayout const layout = Arrange(GetSizePixel(), {commands_.MenuHeight(), GetTextSize("0").Height(),
                                                       commands_.ButtonsWidth(), tolerances_.GetWidth()});
    commands_.PlaceButtons(layout.buttons);
    auto const place = [](sv::Window& window, sv::Rectangle const& area) {
        window.SetPosSizePixel(area.TopLeft(), area.GetSize());
    };
    place(conditions_, layout.conditions);
    place(samples_, layout.table);
    place(plot_, layout.plot);
    place(tolerances_, layout.panel);
    place(status_, layout.status);
}

bool DeskWindow::Open(std::string const& path) {
    auto file = file_.Read(path);
    if (!file) return false;
    ShowFile(std::move(*file), false);
    file_.ShowWarnings();
    return true;
}

// Conditions that the file does not state are kept.
void DeskWindow::ShowFile(files::MeasurementFile file, bool isUnsaved) {
    evaluation::SheetConditions conditions;
    conditions_.Read(conditions);
    tolerances_.Read(conditions.tolerances);
    if (file.stated.illuminant) conditions.illuminant = *file.stated.illuminant;
    if (file.stated.observer) conditions.observer = *file.stated.observer;
    samples_.ShowSheet(nullptr);
    plot_.ShowNothing();
    file_.Set(std::move(file), isUnsaved);
    samples_.ShowSheet(file_.GetSheet());
    SetText(sv::String(files::ToSuite(GetSheet()->File().path)) + " - " + ProgramName);
    Recompute(conditions);
    SelectSamples({0});
}

void DeskWindow::Recompute(evaluation::SheetConditions const& conditions) {
    file_.GetSheet()->Change(conditions);
    samples_.Update();
    ShowConditions(GetSheet()->Conditions());
    ShowStatus();
}

void DeskWindow::ShowConditions(evaluation::SheetConditions const& conditions) {
    conditions_.Show(conditions);
    tolerances_.Show(conditions.tolerances, file_.SampleName(conditions.standard),
                     file_.SampleName(conditions.paper));
}

void DeskWindow::SelectSamples(std::vector<int> samples) {
    samples_.SelectRows(std::move(samples));
    ShowSelection();
}

void DeskWindow::ShowSelection() {
    if (GetSheet() != nullptr) plot_.ShowSamples(GetSheet()->File(), samples_.GetSelectedRows());
    ShowCommands();
    ShowStatus();
}

void DeskWindow::ShowStatus() {
    status_.SetText(StatusText(file_, samples_.GetSelectedRows(), plot_.GetCursorIndex()));
}

void DeskWindow::ShowCommands() {
    commands_.Enable([this](Command command) { return CanDo(command); });
    commands_.Check(Command::AutoScale, plot_.IsAutoScale());
    tolerances_.EnableUse(CanDo(Command::UseAsStandard));
}

void DeskWindow::SetBusy(bool isBusy) {
    isBusy_ = isBusy;
    Enable(!isBusy);
    messages_.Enable(!isBusy);
    ShowCommands();
}

void DeskWindow::UseAsStandard(std::size_t sample) {
    if (GetSheet() == nullptr) return;
    evaluation::SheetConditions conditions = GetSheet()->Conditions();
    conditions.standard = Toggled(conditions.standard, sample);
    Recompute(conditions);
}

void DeskWindow::UseAsPaper(std::size_t sample) {
    if (GetSheet() == nullptr) return;
    evaluation::SheetConditions conditions = GetSheet()->Conditions();
    conditions.paper = Toggled(conditions.paper, sample);
    Recompute(conditions);
}

void DeskWindow::PutCursor(int wavelengthIndex) {
    plot_.MoveCursor(wavelengthIndex - plot_.GetCursorIndex().value_or(0));
}

void DeskWindow::ChangeLanguage(unsigned short entry) {
    kv::Language::SetLanguage(entry);
    kv::Text::FreeResources();
    kv::Text::LoadText(textStem_, kv::Language::GetCountryCode());
    UpdateTexts();
    if (GetSheet() != nullptr) {
        Recompute(GetSheet()->Conditions());
    } else {
        tolerances_.Show({}, {}, {});
    }
}

void DeskWindow::Measure() {
    if (isBusy_ || !file_.MayDiscard()) return;
    DeskMeasurement measurement = [this] {
        Busy const busy(*this);
        return MeasureChart(*this);
    }();
    std::size_t const measured = measurement.file.samples.size();
    if (measured > 0) ShowFile(std::move(measurement.file), true);
    if (!measurement.fault.IsEmpty())
        ShowError(
            Format(TextOf(Question::MeasurementStopped), {std::to_string(measured), measurement.fault}));
}

bool DeskWindow::SavePlot(sv::String const& path) {
    if (draw_(plot_, path)) return true;
    ShowError(Format(TextOf(Question::PlotNotSaved), {path}));
    return false;
}

void DeskWindow::AskAndSavePlot() {
    kv::MyFileDialog dialog(this, kv::MyFileDialog::Save, TextOf(Question::SavePlotTitle));
    dialog.AddFilter(TextOf(Question::Pictures), "*.png");
    dialog.AddFilter(TextOf(Question::Drawings), "*.pdf *.svg");
    if (dialog.Execute() != 0) SavePlot(dialog.GetPath());
}

bool DeskWindow::PrintReport(sv::String const& printer) {
    Busy const busy(*this);
    return reporting_.Print(printer);
}

bool DeskWindow::SendReport(sv::String const& recipients) {
    Busy const busy(*this);
    return reporting_.Send(recipients);
}

bool DeskWindow::CanDo(Command command) const {
    if (isBusy_) return false;
    switch (command) {
        case Command::Save:
        case Command::SaveReport:
        case Command::Print:
        case Command::SendReport:
        case Command::SelectAll:
            return GetSheet() != nullptr;
        case Command::UseAsStandard:
        case Command::UseAsPaper:
        case Command::SavePlot:
        case Command::CursorLeft:
        case Command::CursorRight:
            return !samples_.GetSelectedRows().empty();
        default:
            return true;
    }
}

void DeskWindow::Execute(Command command) {
    if (!CanDo(command)) return;
    auto const firstSelected = [this] {
        return static_cast<std::size_t>(samples_.GetSelectedRows().front());
    };
    switch (command) {
        case Command::Open:
            if (!file_.MayDiscard()) return;
            if (auto const path = file_.AskForPath()) Open(*path);
            return;
        case Command::Measure:
            return Measure();
        case Command::Save:
            file_.AskAndSave();
            return;
        case Command::SavePlot:
            return AskAndSavePlot();
        case Command::SaveReport:
            if (auto const path = reporting_.AskForPath(); !path.IsEmpty()) PrintReport(path);
            return;
        case Command::Print:
            PrintReport({});
            return;
        case Command::SendReport:
            if (auto const recipients = reporting_.AskForRecipients(); !recipients.IsEmpty())
                SendReport(recipients);
            return;
        case Command::Quit:
            return WasClosed();
        case Command::UseAsStandard:
            return UseAsStandard(firstSelected());
        case Command::UseAsPaper:
            return UseAsPaper(firstSelected());
        case Command::SelectAll: {
            std::vector<int> all(GetSheet()->Rows().size());
            std::iota(all.begin(), all.end(), 0);
            return SelectSamples(std::move(all));
        }
        case Command::AutoScale:
            plot_.SetAutoScale(!plot_.IsAutoScale());
            return ShowCommands();
        case Command::CursorLeft:
            return plot_.MoveCursor(-1);
        case Command::CursorRight:
            return plot_.MoveCursor(1);
        case Command::Messages:
            return messages_.Show();
    }
}

void DeskWindow::WasClosed() {
    if (isBusy_ || !file_.MayDiscard()) return;
    messages_.Close();
    sv::Application::Quit();
}

long DeskWindow::ConditionHdl(void* /*sender*/) {
    if (GetSheet() == nullptr) return 0;
    evaluation::SheetConditions conditions = GetSheet()->Conditions();
    conditions_.Read(conditions);
    tolerances_.Read(conditions.tolerances);
    Recompute(conditions);
    return 0;
}

long DeskWindow::LanguageHdl(void* /*sender*/) {
    ChangeLanguage(conditions_.GetLanguageEntry());
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

long DeskWindow::UseAsStandardHdl(void* /*sender*/) {
    Execute(Command::UseAsStandard);
    return 0;
}

long DeskWindow::UseAsPaperHdl(void* /*sender*/) {
    Execute(Command::UseAsPaper);
    return 0;
}

}  // namespace colourdesk
