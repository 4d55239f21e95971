#include "SV/ui/Table.h"

#include "SV/ui/Backend.h"

#include <algorithm>
#include <utility>

namespace sv {

Table::Table(Window* parent, Style style) : Window(detail::WindowKind::Table, parent, style) {}

void Table::SetColumns(std::vector<TableColumn> columns) {
    columns_ = std::move(columns);
    GetPeer().SetColumns(columns_);
}

void Table::SetRowCount(int count) {
    rowCount_ = std::max(count, 0);
    selected_.clear();
    GetPeer().SetRowCount(rowCount_);
}

void Table::SelectRows(std::vector<int> rows) {
    std::erase_if(rows, [this](int row) { return row < 0 || row >= rowCount_; });
    std::ranges::sort(rows);
    selected_ = std::move(rows);
    GetPeer().SelectRows(selected_);
}

Link Table::ChangeSelectHdl(Link const& link) noexcept { return std::exchange(select_, link); }

void Table::RowsWereSelected(std::vector<int> rows) {
    selected_ = std::move(rows);
    select_.Call(this);
}

}  // namespace sv
