// Command: what the user can choose in the menus, by the buttons and with the keyboard.
#pragma once

namespace colourdesk {

/// The item's number in the menu, from 1. Its name follows the menus' titles in the group "ColourDeskMenu",
/// its line of help stands in "ColourDeskHelp" in the same order.
enum class Command : int {
    Open = 1,
    Measure,
    Save,
    SavePlot,
    SaveReport,
    Print,
    SendReport,
    Quit,
    UseAsStandard,
    UseAsPaper,
    SelectAll,
    AutoScale,
    CursorLeft,
    CursorRight,
    Messages
};
inline constexpr int FirstCommand = 1;
inline constexpr int LastCommand = static_cast<int>(Command::Messages);

}  // namespace colourdesk
