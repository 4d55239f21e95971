// TableLayout: computes which columns of a table are side by side and how wide they are.
#pragma once

#include "Apps/kvcolor/output/Answer.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvcolor {

/// The maximum width of a table.
inline constexpr std::size_t MaxLineWidth = 100;

/// Columns side by side, by their index, with their widths.
struct ColumnBlock {
    std::vector<std::size_t> columns;
    std::vector<std::size_t> widths;
};

/// Returns the title and the unit of a column.
[[nodiscard]] std::string HeadText(Column const& column);
/// Formats a number with these decimals, rounded half away from zero; a rounded 0 has no sign.
[[nodiscard]] std::string Fixed(float value, int decimals);
/// Returns the text of a cell before it is cut: "-" for nothing and for numbers that are not finite.
[[nodiscard]] std::string CellText(Column const& column, Cell const& cell);

/// Arranges the columns in blocks of at most `limit` in width, with two blanks between columns, or one if two
/// do not fit. Cuts texts before it folds a table; each block of a folded table begins with the first column.
[[nodiscard]] std::vector<ColumnBlock> LayOut(Table const& table, std::size_t limit);

/// Returns the number of blanks between the columns of a block.
[[nodiscard]] std::size_t GapOf(ColumnBlock const& block, std::size_t limit) noexcept;

}  // namespace kvcolor
