// Tables, of which Qt asks only for the cells that show.
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"
#include "SV/ui/Table.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QSignalBlocker>
#include <QTableView>
#include <algorithm>
#include <vector>

namespace sv::qt {

namespace {

// In pixels.
constexpr int RowPadding = 6;
constexpr int CellPadding = 12;
constexpr int SwatchSide = 16;

/// The same in selected rows, so that the colour can be judged.
QVariant SwatchOf(Color color) {
    QPixmap square(SwatchSide, SwatchSide);
    square.fill(ToQt(color));
    QIcon icon;
    for (QIcon::Mode const mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled})
        icon.addPixmap(square, mode);
    return icon;
}

class Model final : public QAbstractTableModel {
  public:
    explicit Model(Table& table) : table_(table) {}

    [[nodiscard]] int rowCount(QModelIndex const& parent) const override {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] int columnCount(QModelIndex const& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(columns_.size());
    }
    [[nodiscard]] QVariant data(QModelIndex const& index, int role) const override {
        switch (role) {
            case Qt::DisplayRole:
                return ToQt(CellAt(index).text);
            case Qt::DecorationRole: {
                auto const swatch = CellAt(index).swatch;
                return swatch ? SwatchOf(*swatch) : QVariant();
            }
            case Qt::FontRole:
                return FontOf(CellAt(index));
            case Qt::TextAlignmentRole:
                return Alignment(index.column());
            default:
                return {};
        }
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical) return {};
        if (role == Qt::TextAlignmentRole) return Alignment(section);
        if (role != Qt::DisplayRole) return {};
        return ToQt(columns_[static_cast<std::size_t>(section)].title);
    }

    /// Other titles keep selection, current row and the widths that the user has chosen.
    void SetColumns(std::span<TableColumn const> columns) {
        bool const hasOtherCount = columns.size() != columns_.size();
        if (hasOtherCount) beginResetModel();
        columns_.assign(columns.begin(), columns.end());
        if (hasOtherCount) {
            endResetModel();
        } else if (!columns_.empty()) {
            headerDataChanged(Qt::Horizontal, 0, static_cast<int>(columns_.size()) - 1);
        }
    }
    [[nodiscard]] std::vector<TableColumn> const& GetColumns() const noexcept { return columns_; }
    void SetRowCount(int rows) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
    }

  private:
    [[nodiscard]] TableCell CellAt(QModelIndex const& index) const {
        return table_.GetCell(index.row(), index.column());
    }
    [[nodiscard]] static QVariant FontOf(TableCell const& cell) {
        if (!cell.isMarked) return {};
        QFont font;
        font.setBold(true);
        return font;
    }
    [[nodiscard]] int Alignment(int column) const {
        bool const isNumber = columns_[static_cast<std::size_t>(column)].isNumber;
        return static_cast<int>(isNumber ? Qt::AlignRight : Qt::AlignLeft) |
               static_cast<int>(Qt::AlignVCenter);
    }

    Table& table_;
    std::vector<TableColumn> columns_;
    int rows_ = 0;
};

std::vector<int> SelectedRows(QItemSelectionModel const& selection) {
    std::vector<int> rows;
    for (QModelIndex const& index : selection.selectedRows()) rows.push_back(index.row());
    std::ranges::sort(rows);
    return rows;
}

class QtTable final : public QtWindow {
  public:
    QtTable(Window& window, QWidget* parent)
        : QtWindow(window, std::make_unique<QTableView>(parent)), model_(static_cast<Table&>(window)) {
        QTableView& view = View();
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSelectionMode(QAbstractItemView::ExtendedSelection);
        view.setTabKeyNavigation(false);
        view.setShowGrid(false);
        view.setAlternatingRowColors(true);
        view.setWordWrap(false);
        view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        view.verticalHeader()->hide();
        view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + RowPadding);
        view.horizontalHeader()->setHighlightSections(false);
        view.horizontalHeader()->setStretchLastSection(true);
        view.setModel(&model_);
        connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
            if (isOwnChange_) return;
            Call([this] { GetWindow().RowsWereSelected(SelectedRows(*View().selectionModel())); });
        });
    }
    QtTable(QtTable const&) = delete;
    QtTable& operator=(QtTable const&) = delete;
    // The widget outlives the model by a turn of the loop.
    ~QtTable() override { View().setModel(nullptr); }

    void SetColumns(std::span<TableColumn const> columns) override {
        std::vector<TableColumn> const before = model_.GetColumns();
        WithoutReport([&] { model_.SetColumns(columns); });
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (before.size() != columns.size() || before[i].width != columns[i].width)
                View().setColumnWidth(static_cast<int>(i), columns[i].width + CellPadding);
        }
    }
    void SetRowCount(int count) override {
        WithoutReport([&] { model_.SetRowCount(count); });
    }
    void SelectRows(std::span<int const> rows) override {
        WithoutReport([&] {
            QItemSelection const chosen = RunsOf(rows);
            auto* const selection = View().selectionModel();
            if (!rows.empty()) {
                selection->setCurrentIndex(model_.index(rows.front(), 0), QItemSelectionModel::NoUpdate);
                View().scrollTo(model_.index(rows.front(), 0));
            }
            selection->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        });
    }
    void Invalidate() override {
        QtWindow::Invalidate();
        View().viewport()->update();
    }

  protected:
    /// Home and End go to the first and last row.
    bool Handle(QEvent& event) override {
        if (event.type() != QEvent::KeyPress) return QtWindow::Handle(event);
        auto const& key = static_cast<QKeyEvent&>(event);
        bool const isHome = key.key() == Qt::Key_Home;
        if ((!isHome && key.key() != Qt::Key_End) || key.modifiers() != Qt::NoModifier) return false;
        View().setCurrentIndex(model_.index(isHome ? 0 : model_.rowCount({}) - 1, 0));
        return true;
    }

  private:
    [[nodiscard]] QTableView& View() const { return static_cast<QTableView&>(Widget()); }

    /// Returns as few ranges as possible, since Qt merges them in quadratic time.
    [[nodiscard]] QItemSelection RunsOf(std::span<int const> rows) const {
        QItemSelection runs;
        for (std::size_t i = 0; i < rows.size();) {
            std::size_t const first = i++;
            while (i < rows.size() && rows[i] == rows[i - 1] + 1) ++i;
            runs.append(QItemSelectionRange(model_.index(rows[first], 0), model_.index(rows[i - 1], 0)));
        }
        return runs;
    }

    /// Makes a change without reporting it to the program.
    template <class Change>
    void WithoutReport(Change const& change) {
        isOwnChange_ = true;
        change();
        isOwnChange_ = false;
    }

    Model model_;
    bool isOwnChange_ = false;
};

}  // namespace

std::unique_ptr<QtWindow> MakeTable(Window& window, QWidget* parent) {
    return std::make_unique<QtTable>(window, parent);
}

}  // namespace sv::qt
