// TableLayout: which columns of a table stand side by side and how wide, decided before anything is written.
#pragma once

#include "Apps/kvcolor/output/Answer.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvcolor {

/// A table for people is never wider.
inline constexpr std::size_t MaxLineWidth = 100;

/// Columns side by side, by their index, with their widths.
struct ColumnBlock {
    std::vector<std::size_t> columns;
    std::vector<std::size_t> widths;
};

/// The head and the unit of a column.
[[nodiscard]] std::string HeadText(Column const& column);
/// A cell as it stands in the table, not yet cut: "-" for nothing.
[[nodiscard]] std::string CellText(Column const& column, Cell const& cell);

/// Blocks of at most `limit` in width, two blanks between columns, or one where two would not fit. Texts are
/// cut before a table is folded; each block of a folded table begins with the first column.
[[nodiscard]] std::vector<ColumnBlock> LayOut(Table const& table, std::size_t limit);

/// How many blanks a block has between its columns.
[[nodiscard]] std::size_t GapOf(ColumnBlock const& block, std::size_t limit) noexcept;

}  // namespace kvcolor
