// sv::Table: rows of cells below column titles, with a selection of rows. The window system scrolls the table
// and asks only for the cells that it shows.
#pragma once

#include "SV/core/Color.h"
#include "SV/core/Link.h"
#include "SV/ui/Window.h"

#include <optional>
#include <span>
#include <vector>

namespace sv {

struct TableColumn {
    String title;
    int width = 0;          // in pixels; the last column also takes the remaining width
    bool isNumber = false;  // aligned to the right

    friend bool operator==(TableColumn const&, TableColumn const&) = default;
};

struct TableCell {
    String text;
    std::optional<Color> swatch{};  // a coloured square before the text
    bool isMarked = false;          // emphasised
};

class Table : public Window {
  public:
    explicit Table(Window* parent, Style style = 0);

    /// Returns a cell. Called for existing rows and columns only.
    [[nodiscard]] virtual TableCell GetCell(int row, int column) const = 0;

    /// Replaces the columns.
    void SetColumns(std::vector<TableColumn> columns);
    [[nodiscard]] std::span<TableColumn const> GetColumns() const noexcept { return columns_; }
    /// Sets the number of rows and clears the selection. If only the contents change, call `Invalidate`.
    void SetRowCount(int count);
    [[nodiscard]] int GetRowCount() const noexcept { return rowCount_; }

    /// Selects only these rows and scrolls the first into view. Rows that do not exist are ignored.
    void SelectRows(std::vector<int> rows);
    /// In ascending order.
    [[nodiscard]] std::span<int const> GetSelectedRows() const noexcept { return selected_; }
    /// Called when the user has changed the selection. Returns the previous link.
    Link ChangeSelectHdl(Link const& link) noexcept;

    void RowsWereSelected(std::vector<int> rows) override;

  private:
    std::vector<TableColumn> columns_;
    int rowCount_ = 0;
    std::vector<int> selected_;
    Link select_;
};

}  // namespace sv
