#include "Apps/files/Numbers.h"
#include "Apps/kvcolor/output/Writers.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <ostream>

namespace kvcolor {

namespace {

using Json = nlohmann::ordered_json;

Json ToJson(Column const& column, Cell const& cell) {
    if (auto const* text = std::get_if<std::string>(&cell)) return *text;
    auto const* number = std::get_if<float>(&cell);
    if (number == nullptr || !std::isfinite(*number)) return nullptr;
    if (column.decimals == 0) return std::lround(*number);
    // The double with the shortest text: 0.1F is written as 0.1, not 0.10000000149.
    return files::ToNumber(files::ToText(*number)).value();
}

Json ToJson(Table const& table, Row const& row) {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        object[table.columns[i].key] = ToJson(table.columns[i], row.cells[i]);
    }
    return object;
}

/// Returns a value as text whose lines, but the first, are indented by so many more blanks.
std::string Indented(Json const& value, std::size_t indent) {
    std::string text;
    for (char const c : value.dump(2, ' ', false, Json::error_handler_t::replace)) {
        text += c;
        if (c == '\n') text.append(indent, ' ');
    }
    return text;
}

}  // namespace

void WriteJson(std::ostream& out, Answer const& answer) {
    Json conditions = Json::object();
    for (Condition const& condition : answer.conditions) conditions[condition.key] = condition.value;
    out << "{\n  \"command\": " << Indented(answer.command, 2)
        << ",\n  \"conditions\": " << Indented(conditions, 2);
    for (Table const& table : answer.tables) {
        out << ",\n  " << Indented(table.key, 2) << ": [";
        char const* separator = "\n    ";
        for (Row const& row : table.rows) {
            out << separator << Indented(ToJson(table, row), 4);
            separator = ",\n    ";
        }
        out << (table.rows.empty() ? "]" : "\n  ]");
    }
    out << "\n}\n";
}

}  // namespace kvcolor
