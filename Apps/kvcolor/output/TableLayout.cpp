#include "Apps/kvcolor/output/TableLayout.h"

#include "Apps/kvcolor/output/Text.h"
#include "KVUtils/Source/data/GString.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kvcolor {

namespace {

/// Enough of a name to distinguish samples.
constexpr std::size_t MinTextWidth = 8;

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

/// Returns the width with one blank between columns.
std::size_t TotalWidth(std::vector<std::size_t> const& widths) noexcept {
    return std::accumulate(widths.begin(), widths.end(), widths.empty() ? 0 : widths.size() - 1);
}

/// Narrows the widest text columns until the table fits or all have their minimum width.
void ShrinkTexts(Table const& table, std::vector<std::size_t>& widths, std::size_t limit) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (table.columns[i].kind == ColumnKind::Text) widths[i] = std::min(widths[i], limit);
    }
    while (TotalWidth(widths) > limit) {
        std::size_t* widest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            bool const canShrink = table.columns[i].kind == ColumnKind::Text &&
                                   widths[i] > std::max(MinTextWidth, Width(HeadText(table.columns[i])));
            if (canShrink && (widest == nullptr || widths[i] > *widest)) widest = &widths[i];
        }
        if (widest == nullptr) return;
        --*widest;
    }
}

std::vector<ColumnBlock> Fold(std::vector<std::size_t> const& widths, std::size_t limit) {
    std::vector<ColumnBlock> blocks(1, {{0}, {widths[0]}});
    for (std::size_t i = 1; i < widths.size(); ++i) {
        bool const isFirstHere = blocks.back().columns.size() == 1;
        if (!isFirstHere && TotalWidth(blocks.back().widths) + 1 + widths[i] > limit) {
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

std::string Fixed(float value, int decimals) {
    std::string text(kv::fString(value, decimals).View());
    // In a column of differences "-0.00" looks like a mistake.
    if (text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-')) text.erase(0, 1);
    return text;
}

std::string CellText(Column const& column, Cell const& cell) {
    if (auto const* text = std::get_if<std::string>(&cell)) return Printable(*text);
    auto const* number = std::get_if<float>(&cell);
    return number != nullptr && std::isfinite(*number) ? Fixed(*number, column.decimals) : "-";
}

std::vector<ColumnBlock> LayOut(Table const& table, std::size_t limit) {
    std::vector<std::size_t> widths = NaturalWidths(table);
    ShrinkTexts(table, widths, limit);
    return Fold(widths, limit);
}

std::size_t GapOf(ColumnBlock const& block, std::size_t limit) noexcept {
    return TotalWidth(block.widths) + block.widths.size() - 1 <= limit ? 2 : 1;
}

}  // namespace kvcolor
