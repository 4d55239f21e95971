// Report: what a command answers, as data. The writers turn it into text and know nothing of colour.
#pragma once

#include "Apps/kvcolor/output/Swatch.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kvcolor {

enum class ColumnKind : int { Text, Number };

/// A column of a table: its name in files, its head and its unit for people.
struct Column {
    std::string key;
    std::string header;
    std::string unit;
    ColumnKind kind = ColumnKind::Number;
    /// Of the table for people; files get all digits. A number without decimals is a whole number.
    int decimals = 2;
};

[[nodiscard]] inline Column TextColumn(std::string key, std::string header) {
    return {std::move(key), std::move(header), "", ColumnKind::Text, 0};
}
[[nodiscard]] inline Column NumberColumn(std::string key, std::string header, int decimals = 2,
                                         std::string unit = "") {
    return {std::move(key), std::move(header), std::move(unit), ColumnKind::Number, decimals};
}

/// A cell: nothing, a text or a number. A number that is not finite counts as nothing in files.
using Cell = std::variant<std::monostate, std::string, float>;

struct Row {
    std::vector<Cell> cells;
    std::optional<Rgb> swatch;
};

struct Table {
    /// Its name in files: "samples", "summary".
    std::string key;
    /// The first is the name of what a row is about.
    std::vector<Column> columns;
    std::vector<Row> rows;
};

/// What the result holds under: "illuminant" and "D50".
struct Condition {
    std::string key;
    std::string value;
};

struct Report {
    std::string command;
    std::vector<Condition> conditions;
    /// At least one; the first is the one that has room in a CSV file.
    std::vector<Table> tables;
};

}  // namespace kvcolor
