// What a plot draws, as the plot counts: lines and texts in pixels from the bottom left.
#pragma once

#include "SV/headless/HeadlessBackend.h"
#include "SV/ui/Window.h"

#include <string>
#include <vector>

namespace kv::test {

/// "line 1,2 3,4", "rect 1,2 3,4", "text 1,2 abc" for each call, colours and pens left out. A text's place is
/// its bottom left corner, as the plot gave it.
inline std::vector<std::string> Drawn(sv::Window& window) {
    int const height = window.GetSizePixel().Height();
    auto const place = [height](sv::Point point, int below = 0) {
        return std::to_string(point.X()) + ',' + std::to_string(height - point.Y() - below);
    };
    std::vector<std::string> drawn;
    for (sv::headless::DrawCall const& call : sv::headless::Record(window)) {
        using Kind = sv::headless::DrawKind;
        if (call.kind == Kind::Line) drawn.push_back("line " + place(call.from) + ' ' + place(call.to));
        if (call.kind == Kind::Rect) drawn.push_back("rect " + place(call.from) + ' ' + place(call.to));
        if (call.kind == Kind::Text) {
            int const below = sv::headless::LetterSize(call.font).Height();
            drawn.push_back("text " + place(call.from, below) + ' ' + std::string(call.text.View()));
        }
    }
    return drawn;
}

}  // namespace kv::test
