#include "Apps/ColourDesk/DeskLayout.h"

#include <algorithm>

namespace colourdesk {

namespace {

// Pixels.
constexpr int Margin = 10;
constexpr int FieldPadding = 10;

constexpr int TablePercent = 52;  // of the height that table and plot share

sv::Rectangle Area(int x, int y, int width, int height) noexcept {
    return sv::Rectangle::Of({x, y}, {std::max(width, 0), std::max(height, 0)});
}

}  // namespace

int FieldHeight(int line) noexcept { return line + FieldPadding; }

DeskLayout Arrange(sv::Size window, DeskMetrics const& metrics) noexcept {
    int const top = metrics.menu + Margin;
    int const left = Margin;
    int const width = window.Width() - metrics.buttons - 3 * Margin;
    int const conditions = FieldHeight(metrics.line);
    int const status = window.Height() - Margin - metrics.line;
    int const table = top + conditions + Margin;
    int const shared = status - Margin - table;
    int const tableHeight = shared * TablePercent / 100;
    int const lower = table + tableHeight + Margin;
    int const lowerHeight = status - Margin - lower;
    int const plot = width - metrics.panel - Margin;
    return {{left + width + Margin, top},
            Area(left, top, width, conditions),
            Area(left, table, width, tableHeight),
            Area(left, lower, plot, lowerHeight),
            Area(left + plot + Margin, lower, metrics.panel, lowerHeight),
            Area(left, status, window.Width() - 2 * Margin, metrics.line)};
}

}  // namespace colourdesk
