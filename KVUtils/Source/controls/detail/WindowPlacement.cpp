#include "KVUtils/Source/controls/detail/WindowPlacement.h"

#include <algorithm>

namespace kv::detail {

namespace {

constexpr int CascadeStep = 20;
constexpr int Overlap = 6;         // of a balloon with its button
constexpr int BottomReserve = 19;  // at the parent's lower edge

}  // namespace

sv::Point PlaceWindow(std::optional<WindowArea> const& reference, WindowArea const& window, sv::Size screen,
                      long flags) noexcept {
    int const w = window.size.Width();
    int const h = window.size.Height();
    int x = window.position.X();
    int y = window.position.Y();
    if ((flags & CentreOnReference) != 0) {
        if (reference) {
            x = std::max(reference->position.X() + (reference->size.Width() - w) / 2, 0);
            y = std::max(reference->position.Y() + (reference->size.Height() - h) / 2, 0);
        } else {
            flags = CentreOnScreen;
        }
    }
    if ((flags & CentreOnScreen) != 0) {
        x = (screen.Width() - w) / 2;
        y = (screen.Height() - h) / 2;
    }
    if ((flags & Cascade) != 0 && reference) {
        x = reference->position.X() + CascadeStep;
        y = reference->position.Y() + CascadeStep;
    }
    return {std::min(x, screen.Width() - w), std::min(y, screen.Height() - h)};
}

BalloonShape ShapeBalloon(sv::Size text) noexcept {
    return {{{2, 0}, {text.Width() + 4, text.Height()}}, {text.Width() + 8, text.Height() + 2}};
}

sv::Point PlaceBalloon(WindowArea const& button, sv::Size balloon, sv::Size parent) noexcept {
    int const bx = button.position.X();
    int const by = button.position.Y();
    int const bw = button.size.Width();
    int const bh = button.size.Height();
    int const w = balloon.Width();
    int const h = balloon.Height();
    bool const isRight = w + bx + bw <= parent.Width();
    bool const isBelow = bh + by + h <= parent.Height() - BottomReserve;
    int const x = static_cast<int>(isRight ? bx + bw * 0.75 : bx + bw * 0.25 - w);
    int const y = isBelow ? by + bh - Overlap : by + Overlap - h;
    return {std::max(x, 0), std::max(y, 0)};
}

}  // namespace kv::detail
