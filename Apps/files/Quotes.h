// Lines to cells, with the quotes that exporters and spreadsheets put round them. Cells are views of the line
// and keep their quotes until somebody asks for their text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace files {

/// Cells of one line, reused from line to line.
using Cells = std::vector<std::string_view>;

/// Splits at runs of blanks and tabs outside quotes. False when a quote is not closed.
[[nodiscard]] bool SplitAtBlanks(std::string_view line, Cells& cells);
/// Splits at every separator outside quotes; cells are trimmed and may be empty. False when a quote is not
/// closed.
[[nodiscard]] bool SplitAt(char separator, std::string_view line, Cells& cells);

/// The text of a cell without its quotes, however often a spreadsheet has doubled them: `"""a"""` is `a`.
[[nodiscard]] std::string Unquoted(std::string_view cell);
/// The same for cells in which no quote can stand, such as numbers: a view.
[[nodiscard]] std::string_view WithoutQuotes(std::string_view cell) noexcept;

/// Whether a spreadsheet has put a whole line in quotes. `line` gets the line within, which lives in `store`.
bool UnwrapLine(std::string_view& line, std::string& store);

}  // namespace files
