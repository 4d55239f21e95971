// DeskLayout: the areas of ColourDesk's window.
#pragma once

#include "SV/core/Geometry.h"

namespace colourdesk {

/// What depends on the font and the language, in pixels.
struct DeskMetrics {
    int menu = 0;     // height of the menu bar
    int line = 0;     // height of a line of text
    int buttons = 0;  // width of the column of buttons
    int panel = 0;    // width of the panel of tolerances
};

/// In the window's pixels. An area that does not fit is empty.
struct DeskLayout {
    sv::Point buttons;
    sv::Rectangle conditions;
    sv::Rectangle table;
    sv::Rectangle plot;
    sv::Rectangle panel;
    sv::Rectangle status;
};

/// The height of an input field or a list of one line.
[[nodiscard]] int FieldHeight(int line) noexcept;
[[nodiscard]] DeskLayout Arrange(sv::Size window, DeskMetrics const& metrics) noexcept;

}  // namespace colourdesk
