#include "Apps/files/Numbers.h"
#include "Apps/kvcolor/output/Writers.h"

#include <nlohmann/json.hpp>

#include <cmath>

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

Json ToJson(Table const& table) {
    Json rows = Json::array();
    for (Row const& row : table.rows) {
        Json object = Json::object();
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            object[table.columns[i].key] = ToJson(table.columns[i], row.cells[i]);
        }
        rows.push_back(std::move(object));
    }
    return rows;
}

}  // namespace

std::string WriteJson(Answer const& answer) {
    Json root;
    root["command"] = answer.command;
    root["conditions"] = Json::object();
    for (Condition const& condition : answer.conditions) root["conditions"][condition.key] = condition.value;
    for (Table const& table : answer.tables) root[table.key] = ToJson(table);
    return root.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace kvcolor
