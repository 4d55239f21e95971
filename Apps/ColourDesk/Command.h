// Command: what a person can have ColourDesk do, by menu, button or keyboard.
#pragma once

namespace colourdesk {

/// The number is that of the item's text in the group "ColourDeskMenu", behind those of the menus' titles,
/// and of its line of help in the group "ColourDeskHelp". Menus count their items from 1.
enum class Command : int {
    Open = 1,
    Measure,
    Save,
    SavePlot,
    SaveReport,
    Print,
    SendReport,
    Close,
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
