// DeskWindow: its commands, the menus and buttons that give them, and when each can be given.
#include "Apps/ColourDesk/DeskWindow.h"
#include "KVUtils/Source/frame/TextSegment.h"

#include <array>
#include <numeric>
#include <utility>

namespace colourdesk {

namespace {

constexpr kv::ButtonSize ButtonWidth{1};

/// A button at the right: one of the suite's own by its id, or one with this picture and the menu's text.
struct DeskButton {
    Command command;
    long standardId;
    unsigned short bitmap;
};

constexpr std::array<DeskButton, 8> Buttons = {{{Command::Open, 0x2, 0},
                                                {Command::Measure, 0x4000, 0},
                                                {Command::Save, 0, 2223},
                                                {Command::SelectAll, 0x20000, 0},
                                                {Command::Print, 0x20, 0},
                                                {Command::SendReport, 0x1000000, 0},
                                                {Command::Messages, 0, 2241},
                                                {Command::Close, 0x1, 0}}};
constexpr unsigned short PlainButton = 0x10;

struct MenuEntry {
    Command command;
    char const* shortcut;
    bool endsGroup;
};

constexpr std::array<MenuEntry, 8> FileMenu = {{{Command::Open, "Ctrl+O", false},
                                                {Command::Measure, "Ctrl+M", true},
                                                {Command::Save, "Ctrl+S", false},
                                                {Command::SavePlot, "Ctrl+E", false},
                                                {Command::SaveReport, "Ctrl+R", true},
                                                {Command::Print, "Ctrl+P", false},
                                                {Command::SendReport, "Ctrl+L", true},
                                                {Command::Close, "Ctrl+Q", false}}};
constexpr std::array<MenuEntry, 3> SamplesMenu = {{{Command::UseAsStandard, "Ctrl+T", false},
                                                   {Command::UseAsPaper, "Ctrl+W", true},
                                                   {Command::SelectAll, "Ctrl+A", false}}};
constexpr std::array<MenuEntry, 4> ViewMenu = {{{Command::AutoScale, "Ctrl+Y", true},
                                                {Command::CursorLeft, "Ctrl+Left", false},
                                                {Command::CursorRight, "Ctrl+Right", true},
                                                {Command::Messages, "F8", false}}};

/// The menus' titles are the first texts of their group.
constexpr unsigned long MenuCount = 3;

}  // namespace

void DeskWindow::MakeMenu() {
    menu_.reset();
    menu_ = std::make_unique<kv::KORVELMenu>(this, "ColourDeskMenu");
    auto const add = [this](unsigned long title, auto const& entries) {
        menu_->AddMenu(title);
        for (MenuEntry const& entry : entries) {
            auto const number = static_cast<unsigned short>(entry.command);
            menu_->AddItem(number, MenuCount + number - FirstCommand,
                           sv::Link::To<&DeskWindow::MenuHdl>(*this), entry.shortcut);
            if (entry.endsGroup) menu_->InsertSeparator();
        }
    };
    add(0, FileMenu);
    add(1, SamplesMenu);
    add(2, ViewMenu);
}

void DeskWindow::MakeButtons() {
    buttons_.reset();
    buttons_ = std::make_unique<kv::KOBitmapButtonBar>(this, ButtonWidth);
    kv::TextSegment const help("ColourDeskHelp");
    kv::TextSegment const menu("ColourDeskMenu");
    sv::Link const link = sv::Link::To<&DeskWindow::ButtonHdl>(*this);
    for (DeskButton const& button : Buttons) {
        auto const number = static_cast<unsigned long>(button.command) - FirstCommand;
        auto const flags = static_cast<long>(button.command);
        kv::KOBitmapButton* const made =
            button.standardId != 0
                ? buttons_->AddButton(link, button.standardId, flags)
                : buttons_->AddButton(button.bitmap, menu[MenuCount + number], link, 0, flags, PlainButton);
        made->SetBalloonText(help[number]);
    }
}

bool DeskWindow::CanDo(Command command) const {
    if (isBusy_) return false;
    switch (command) {
        case Command::Save:
        case Command::SaveReport:
        case Command::Print:
        case Command::SendReport:
        case Command::SelectAll:
            return sheet_.has_value();
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

void DeskWindow::ShowCommands() {
    for (int number = FirstCommand; number <= LastCommand; ++number) {
        menu_->EnableItem(static_cast<unsigned short>(number), CanDo(static_cast<Command>(number)));
    }
    menu_->CheckItem(static_cast<unsigned short>(Command::AutoScale), plot_.IsAutoScale());
    for (unsigned long i = 0; i < buttons_->Count(); ++i) {
        auto* const button = static_cast<kv::KOBitmapButton*>(buttons_->GetObject(i));
        bool const can = CanDo(static_cast<Command>(button->GetFlags()));
        if (button->IsEnabled() != can) button->Enable(can);
    }
    judgement_.EnableUse(CanDo(Command::UseAsStandard));
}

void DeskWindow::Execute(Command command) {
    if (!CanDo(command)) return;
    auto const selected = samples_.GetSelectedRows();
    switch (command) {
        case Command::Open:
            return AskAndOpen();
        case Command::Measure:
            return Measure();
        case Command::Save:
            AskAndSave();
            return;
        case Command::SavePlot:
            return AskAndSavePlot();
        case Command::SaveReport:
            return AskAndSaveReport();
        case Command::Print:
            PrintReport({});
            return;
        case Command::SendReport:
            return AskAndSendReport();
        case Command::Close:
            return WasClosed();
        case Command::UseAsStandard:
            return UseAsStandard(static_cast<std::size_t>(selected.front()));
        case Command::UseAsPaper:
            return UseAsPaper(static_cast<std::size_t>(selected.front()));
        case Command::SelectAll: {
            std::vector<int> all(sheet_->Rows().size());
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
            return ShowMessages();
    }
}

long DeskWindow::MenuHdl(sv::MenuBar* sender) {
    Execute(static_cast<Command>(sender->GetCurItemId()));
    return 0;
}

long DeskWindow::ButtonHdl(kv::KOBitmapButton* sender) {
    Execute(static_cast<Command>(sender->GetFlags()));
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
