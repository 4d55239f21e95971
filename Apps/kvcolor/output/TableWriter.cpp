#include "Apps/kvcolor/output/TableLayout.h"
#include "Apps/kvcolor/output/Text.h"
#include "Apps/kvcolor/output/Writers.h"

#include <ostream>

namespace kvcolor {

namespace {

constexpr std::size_t SwatchWidth = 3;
/// Cuts paths, which have no blanks to break a line at.
constexpr std::size_t MaxConditionWidth = 75;

std::string HeadLine(Answer const& answer) {
    std::string line = answer.command + ':';
    char const* separator = " ";
    for (Condition const& condition : answer.conditions) {
        line += separator + condition.key + ' ' + Cut(Printable(condition.value), MaxConditionWidth);
        separator = ", ";
    }
    return Wrap(line, MaxLineWidth) + '\n';
}

/// Aligns texts left and numbers right.
void Append(std::string& line, std::string const& text, std::size_t width, ColumnKind kind) {
    std::string const shown = Cut(text, width);
    std::string const padding(width - Width(shown), ' ');
    line += kind == ColumnKind::Text ? shown + padding : padding + shown;
}

/// Writes a line without blanks at its end.
void WriteTrimmed(std::ostream& out, std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

/// Returns a line of a block; `textOf` returns the text of a column by its index.
template <class TextOf>
std::string Line(Table const& table, ColumnBlock const& block, std::size_t gap, TextOf const& textOf) {
    std::string line;
    for (std::size_t i = 0; i < block.columns.size(); ++i) {
        std::size_t const index = block.columns[i];
        if (i > 0) line.append(gap, ' ');
        Append(line, textOf(index), block.widths[i], table.columns[index].kind);
    }
    return line;
}

bool HasSwatches(Table const& table) noexcept {
    return !table.rows.empty() && table.rows.front().swatch.has_value();
}

void WriteTable(std::ostream& out, Table const& table, ColourDepth depth) {
    bool const isColoured = depth != ColourDepth::None && HasSwatches(table);
    std::size_t const limit = MaxLineWidth - (isColoured ? SwatchWidth : 0);

    for (ColumnBlock const& block : LayOut(table, limit)) {
        std::size_t const gap = GapOf(block, limit);
        std::string const margin(isColoured ? SwatchWidth : 0, ' ');
        out << '\n';
        WriteTrimmed(
            out, margin + Line(table, block, gap, [&](std::size_t i) { return HeadText(table.columns[i]); }));
        for (Row const& row : table.rows) {
            std::string const swatch =
                isColoured && row.swatch ? SwatchText(*row.swatch, depth) + ' ' : margin;
            WriteTrimmed(out, swatch + Line(table, block, gap, [&](std::size_t i) {
                                  return CellText(table.columns[i], row.cells[i]);
                              }));
        }
    }
}

}  // namespace

void WriteTable(std::ostream& out, Answer const& answer, ColourDepth depth) {
    out << HeadLine(answer);
    for (Table const& table : answer.tables) WriteTable(out, table, depth);
}

}  // namespace kvcolor
