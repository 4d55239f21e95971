#include "Apps/kvcolor/output/TableLayout.h"

#include "Apps/kvcolor/output/Numbers.h"
#include "Apps/kvcolor/output/Text.h"

#include <algorithm>
#include <numeric>

namespace kvcolor {

namespace {

/// Room for a name that still tells samples apart.
constexpr std::size_t LeastTextWidth = 8;

std::vector<std::size_t> NaturalWidths(Table const& table) {
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        Column const& column = table.columns[i];
        std::size_t width = Width(HeadText(column));
        for (Row const& row : table.rows) width = std::max(width, Width(CellText(column, row.cells[i])));
        widths.push_back(width);
    }
    return widths;
}

/// With one blank between columns.
std::size_t LeastWidth(std::vector<std::size_t> const& widths) noexcept {
    return std::accumulate(widths.begin(), widths.end(), widths.empty() ? 0 : widths.size() - 1);
}

/// Takes from the widest text columns until the table fits or no text can give more.
void ShrinkTexts(Table const& table, std::vector<std::size_t>& widths, std::size_t limit) {
    while (LeastWidth(widths) > limit) {
        std::size_t* widest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            bool const canGive = table.columns[i].kind == ColumnKind::Text &&
                                 widths[i] > std::max(LeastTextWidth, Width(HeadText(table.columns[i])));
            if (canGive && (widest == nullptr || widths[i] > *widest)) widest = &widths[i];
        }
        if (widest == nullptr) return;
        --*widest;
    }
}

std::vector<ColumnBlock> Fold(std::vector<std::size_t> const& widths, std::size_t limit) {
    std::vector<ColumnBlock> blocks(1, {{0}, {widths[0]}});
    for (std::size_t i = 1; i < widths.size(); ++i) {
        bool const isFirstHere = blocks.back().columns.size() == 1;
        if (!isFirstHere && LeastWidth(blocks.back().widths) + 1 + widths[i] > limit) {
            blocks.push_back({{0}, {widths[0]}});
        }
        blocks.back().columns.push_back(i);
        blocks.back().widths.push_back(widths[i]);
    }
    return blocks;
}

}  // namespace

std::string HeadText(Column const& column) {
    return column.unit.empty() ? column.header : column.header + ' ' + column.unit;
}

std::string CellText(Column const& column, Cell const& cell) {
    if (auto const* text = std::get_if<std::string>(&cell)) return Printable(*text);
    if (auto const* number = std::get_if<float>(&cell)) return Fixed(*number, column.decimals);
    return "-";
}

std::vector<ColumnBlock> LayOut(Table const& table, std::size_t limit) {
    std::vector<std::size_t> widths = NaturalWidths(table);
    ShrinkTexts(table, widths, limit);
    return Fold(widths, limit);
}

std::size_t GapOf(ColumnBlock const& block, std::size_t limit) noexcept {
    return LeastWidth(block.widths) + block.widths.size() - 1 <= limit ? 2 : 1;
}

}  // namespace kvcolor
