// Quotes: splits lines into cells and removes the quotes that exporters and spreadsheets add. Cells are views
// of the line, with their quotes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace files {

/// The cells of one line.
using Cells = std::vector<std::string_view>;

/// As a separator: any run of blanks and tabs.
inline constexpr char Blanks = ' ';

/// Splits at every separator outside quotes; cells are trimmed and may be empty, unless Blanks separate them.
/// Returns false if a quote is not closed.
[[nodiscard]] bool SplitAt(char separator, std::string_view line, Cells& cells);

/// Returns the text of a cell without quotes, even repeatedly doubled ones: `"""a"""` is `a`.
[[nodiscard]] std::string Unquoted(std::string_view cell);
/// Removes the quotes around a cell that cannot contain any, such as a number.
[[nodiscard]] std::string_view WithoutQuotes(std::string_view cell) noexcept;

/// If a spreadsheet quoted the whole line, sets `line` to its content, held by `store`, and returns true.
bool UnwrapLine(std::string_view& line, std::string& store);

}  // namespace files
