#include "Apps/files/Numbers.h"
#include "Apps/kvcolor/output/Writers.h"

#include <cmath>

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

/// Replaces the last comma of a line by its end.
void EndLine(std::string& text) { text.replace(text.size() - 1, 1, "\r\n"); }

}  // namespace

std::string WriteCsv(Answer const& answer) {
    Table const& table = answer.tables.front();
    std::string text;
    for (Column const& column : table.columns) text.append(CsvQuoted(column.key)).append(",");
    std::string conditions;
    for (Condition const& condition : answer.conditions) {
        text.append(CsvQuoted(condition.key)).append(",");
        conditions.append(CsvQuoted(condition.value)).append(",");
    }
    EndLine(text);

    for (Row const& row : table.rows) {
        for (Cell const& cell : row.cells) text.append(CsvText(cell)).append(",");
        text += conditions;
        EndLine(text);
    }
    return text;
}

}  // namespace kvcolor
