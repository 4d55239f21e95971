#include "Apps/files/Numbers.h"
#include "Apps/kvcolor/output/Writers.h"

#include <cmath>
#include <ostream>

namespace kvcolor {

namespace {

std::string CsvQuoted(std::string const& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char const c : text) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string CsvText(Cell const& cell) {
    if (auto const* text = std::get_if<std::string>(&cell)) return CsvQuoted(*text);
    auto const* number = std::get_if<float>(&cell);
    return number != nullptr && std::isfinite(*number) ? files::ToText(*number) : std::string();
}

/// Writes a line, whose last comma becomes its end.
void WriteCsvLine(std::ostream& out, std::string line) {
    line.back() = '\n';
    out << line;
}

}  // namespace

void WriteCsv(std::ostream& out, Answer const& answer) {
    Table const& table = answer.tables.front();
    std::string head;
    for (Column const& column : table.columns) head.append(CsvQuoted(column.key)).append(",");
    std::string conditions;
    for (Condition const& condition : answer.conditions) {
        head.append(CsvQuoted(condition.key)).append(",");
        conditions.append(CsvQuoted(condition.value)).append(",");
    }
    WriteCsvLine(out, std::move(head));

    for (Row const& row : table.rows) {
        std::string line;
        for (Cell const& cell : row.cells) line.append(CsvText(cell)).append(",");
        WriteCsvLine(out, line + conditions);
    }
}

}  // namespace kvcolor
