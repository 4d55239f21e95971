// Answer: the result of a command as data, which the writers turn into text.
#pragma once

#include "Apps/kvcolor/output/Swatch.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kvcolor {

enum class ColumnKind : int { Text, Number };

/// A column of a table: its name in files, its title and its unit.
struct Column {
    std::string key;
    std::string header;
    std::string unit;
    ColumnKind kind = ColumnKind::Number;
    /// The decimals shown by the table format; the others write all digits. With 0 the numbers are whole.
    int decimals = 2;
};

[[nodiscard]] inline Column TextColumn(std::string key, std::string header) {
    return {std::move(key), std::move(header), "", ColumnKind::Text, 0};
}
[[nodiscard]] inline Column NumberColumn(std::string key, std::string header, int decimals = 2,
                                         std::string unit = "") {
    return {std::move(key), std::move(header), std::move(unit), ColumnKind::Number, decimals};
}

/// A cell: nothing, a text or a number. Files leave out a number that is not finite.
using Cell = std::variant<std::monostate, std::string, float>;

struct Row {
    std::vector<Cell> cells;
    std::optional<Rgb> swatch;
};

struct Table {
    /// Its name in files: "samples", "summary".
    std::string key;
    /// The first is the name of the row.
    std::vector<Column> columns;
    std::vector<Row> rows;
};

/// A condition of the result: "illuminant" and "D50".
struct Condition {
    std::string key;
    std::string value;
};

struct Answer {
    std::string command;
    std::vector<Condition> conditions;
    /// At least one; CSV contains the first.
    std::vector<Table> tables;
};

}  // namespace kvcolor
