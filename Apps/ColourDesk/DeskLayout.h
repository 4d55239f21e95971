// DeskLayout: where the parts of ColourDesk's window stand.
#pragma once

#include "SV/core/Geometry.h"

namespace colourdesk {

/// What the texts of the language take up, in pixels.
struct DeskMetrics {
    int menu = 0;     // height of the menu bar
    int line = 0;     // height of a line of text
    int buttons = 0;  // width of the column of buttons
    int panel = 0;    // width of the panel of judgement
};

/// Areas in the window, in pixels. One that the window has no room for is empty.
struct DeskLayout {
    sv::Point buttons;
    sv::Rectangle conditions;
    sv::Rectangle table;
    sv::Rectangle plot;
    sv::Rectangle panel;
    sv::Rectangle status;
};

/// The height of a field or a list that shows one line.
[[nodiscard]] int FieldHeight(int line) noexcept;
[[nodiscard]] DeskLayout Arrange(sv::Size window, DeskMetrics const& metrics) noexcept;

}  // namespace colourdesk
