#include "Apps/ColourDesk/DeskCommands.h"

#include "KVUtils/Source/frame/TextSegment.h"

#include <array>
#include <utility>

namespace colourdesk {

namespace {

constexpr kv::ButtonSize ButtonWidth{1};

/// One of the suite's standard buttons by its id, or one with this bitmap and the menu's text.
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
                                                {Command::Quit, 0x1, 0}}};
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
                                                {Command::Quit, "Ctrl+Q", false}}};
constexpr std::array<MenuEntry, 3> SamplesMenu = {{{Command::UseAsStandard, "Ctrl+T", false},
                                                   {Command::UseAsPaper, "Ctrl+W", true},
                                                   {Command::SelectAll, "Ctrl+A", false}}};
constexpr std::array<MenuEntry, 4> ViewMenu = {{{Command::AutoScale, "Ctrl+Y", true},
                                                {Command::CursorLeft, "Ctrl+Left", false},
                                                {Command::CursorRight, "Ctrl+Right", true},
                                                {Command::Messages, "F8", false}}};

/// Titles precede the items in the group of texts.
constexpr unsigned long MenuCount = 3;

}  // namespace

DeskCommands::DeskCommands(sv::Window& window, std::function<void(Command)> execute)
    : window_(window), execute_(std::move(execute)) {}

void DeskCommands::UpdateTexts() {
    MakeMenu();
    MakeButtons();
}

void DeskCommands::MakeMenu() {
    menu_.reset();
    menu_ = std::make_unique<kv::KORVELMenu>(&window_, "ColourDeskMenu");
    auto const add = [this](unsigned long title, auto const& entries) {
        menu_->AddMenu(title);
        for (MenuEntry const& entry : entries) {
            auto const number = static_cast<unsigned short>(entry.command);
            menu_->AddItem(number, MenuCount + number - FirstCommand,
                           sv::Link::To<&DeskCommands::MenuHdl>(*this), entry.shortcut);
            if (entry.endsGroup) menu_->InsertSeparator();
        }
    };
    add(0, FileMenu);
    add(1, SamplesMenu);
    add(2, ViewMenu);
}

void DeskCommands::MakeButtons() {
    buttons_.reset();
    buttons_ = std::make_unique<kv::KOBitmapButtonBar>(&window_, ButtonWidth);
    kv::TextSegment const help("ColourDeskHelp");
    kv::TextSegment const menu("ColourDeskMenu");
    sv::Link const link = sv::Link::To<&DeskCommands::ButtonHdl>(*this);
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

void DeskCommands::Enable(std::function<bool(Command)> const& canDo) {
    for (int number = FirstCommand; number <= LastCommand; ++number) {
        menu_->EnableItem(static_cast<unsigned short>(number), canDo(static_cast<Command>(number)));
    }
    for (unsigned long i = 0; i < buttons_->Count(); ++i) {
        auto* const button = static_cast<kv::KOBitmapButton*>(buttons_->GetObject(i));
        bool const can = canDo(static_cast<Command>(button->GetFlags()));
        if (button->IsEnabled() != can) button->Enable(can);
    }
}

void DeskCommands::Check(Command command, bool isChecked) {
    menu_->CheckItem(static_cast<unsigned short>(command), isChecked);
}

int DeskCommands::MenuHeight() { return menu_ == nullptr ? 0 : menu_->Fit(); }

int DeskCommands::ButtonsWidth() const {
    return buttons_ == nullptr ? 0 : buttons_->GetBarPosSizePixel().GetSize().Width();
}

void DeskCommands::PlaceButtons(sv::Point position) {
    if (buttons_ != nullptr) buttons_->ChangePosPixel(position);
}

long DeskCommands::MenuHdl(sv::MenuBar* sender) {
    execute_(static_cast<Command>(sender->GetCurItemId()));
    return 0;
}

long DeskCommands::ButtonHdl(kv::KOBitmapButton* sender) {
    execute_(static_cast<Command>(sender->GetFlags()));
    return 0;
}

}  // namespace colourdesk
