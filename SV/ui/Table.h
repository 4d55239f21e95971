// sv::Table: rows of cells under the titles of their columns, of which a person selects some. The window
// system scrolls it and shows what is to be seen; only for that are cells asked.
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
    int width = 0;          // in pixels; the last column takes what is left as well
    bool isNumber = false;  // stands at the right

    friend bool operator==(TableColumn const&, TableColumn const&) = default;
};

struct TableCell {
    String text;
    std::optional<Color> swatch{};  // a square of the colour in front of the text
    bool isMarked = false;          // to be noticed
};

class Table : public Window {
  public:
    explicit Table(Window* parent, Style style = 0);

    /// Called for rows and columns that there are.
    [[nodiscard]] virtual TableCell GetCell(int row, int column) const = 0;

    /// In place of the columns before.
    void SetColumns(std::vector<TableColumn> columns);
    [[nodiscard]] std::span<TableColumn const> GetColumns() const noexcept { return columns_; }
    /// Begins anew, with nothing selected. For new contents of the same rows it is `Invalidate`.
    void SetRowCount(int count);
    [[nodiscard]] int GetRowCount() const noexcept { return rowCount_; }

    /// Selects these alone, and scrolls the first of them into view. Rows that there are not are left out.
    void SelectRows(std::vector<int> rows);
    /// Ascending.
    [[nodiscard]] std::span<int const> GetSelectedRows() const noexcept { return selected_; }
    /// A person has selected other rows. Returns the link before.
    Link ChangeSelectHdl(Link const& link) noexcept;

    void RowsWereSelected(std::vector<int> rows) override;

  private:
    std::vector<TableColumn> columns_;
    int rowCount_ = 0;
    std::vector<int> selected_;
    Link select_;
};

}  // namespace sv
