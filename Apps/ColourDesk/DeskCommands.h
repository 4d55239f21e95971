// DeskCommands: ColourDesk's menus and buttons.
#pragma once

#include "Apps/ColourDesk/Command.h"
#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/dialogs/KORVELMenu.h"

#include <functional>
#include <memory>

namespace colourdesk {

class DeskCommands {
  public:
    /// Calls `execute` when the user chooses a command. Shows nothing before the first `UpdateTexts`.
    DeskCommands(sv::Window& window, std::function<void(Command)> execute);

    /// Creates menus and buttons in the current language, all enabled.
    void UpdateTexts();
    /// Enables those commands for which `canDo` is true.
    void Enable(std::function<bool(Command)> const& canDo);
    void Check(Command command, bool isChecked);

    /// In pixels; 0 before the first `UpdateTexts`.
    [[nodiscard]] int MenuHeight();
    [[nodiscard]] int ButtonsWidth() const;
    void PlaceButtons(sv::Point position);

  private:
    void MakeMenu();
    void MakeButtons();
    long MenuHdl(sv::MenuBar* sender);
    long ButtonHdl(kv::KOBitmapButton* sender);

    sv::Window& window_;
    std::function<void(Command)> execute_;
    std::unique_ptr<kv::KORVELMenu> menu_;
    std::unique_ptr<kv::KOBitmapButtonBar> buttons_;
};

}  // namespace colourdesk
