#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/Table.h"

#include <QHeaderView>
#include <QTableView>
#include <string>
#include <vector>

namespace sv::qt::tests {
namespace {

/// Cells with their row and column as text; counts the requests.
class Cells final : public Table {
  public:
    using Table::Table;
    [[nodiscard]] TableCell GetCell(int row, int column) const override {
        ++asked;
        return {std::to_string(row) + ":" + std::to_string(column), Color(0xFFFF, 0, 0), row == 1};
    }
    mutable int asked = 0;
};

class QtTableTest : public QtTest {
  protected:
    QtTableTest() {
        Place(table, {0, 0}, {280, 180});
        table.SetColumns({{"Name", 80, false}, {"Zahl \xFC", 60, true}});
        table.ChangeSelectHdl(notes.To<'s'>());
    }
    [[nodiscard]] QTableView& View() const { return static_cast<QTableView&>(WidgetOf(table)); }
    [[nodiscard]] std::vector<int> Selected() const {
        return {table.GetSelectedRows().begin(), table.GetSelectedRows().end()};
    }

    Cells table{&frame};
};

TEST_F(QtTableTest, AsksForTheCellsThatItShows) {
    table.SetRowCount(2000);
    ShowFrame();
    static_cast<void>(PictureOf(frame));
    EXPECT_GT(table.asked, 0);
    EXPECT_LT(table.asked, 2000) << "of 4000 cells";
    QAbstractItemModel const& model = *View().model();
    EXPECT_EQ(model.index(2, 1).data().toString(), "2:1");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QString::fromUtf8("Zahl \u00FC"));
    EXPECT_TRUE(model.index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(model.index(0, 1).data(Qt::TextAlignmentRole).toInt(), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(QtTableTest, ReportsTheRowsThatTheUserSelects) {
    Edit edit(&frame);
    Place(edit, {0, 182}, {80, 18});
    table.SetRowCount(10);
    ShowFrame();
    table.GrabFocus();
    for (auto const& [key, modifier, selected] :
         {std::tuple(Qt::Key_End, Qt::NoModifier, std::vector<int>{9}),
          {Qt::Key_Home, Qt::NoModifier, {0}},
          {Qt::Key_Down, Qt::NoModifier, {1}},
          {Qt::Key_Down, Qt::ShiftModifier, {1, 2}}}) {
        QTest::keyClick(&View(), key, modifier);
        EXPECT_EQ(Selected(), selected);
        EXPECT_NE(notes.Take(), "");
    }
    table.SelectRows({7, 2, 99, 3});
    EXPECT_EQ(Selected(), (std::vector<int>{2, 3, 7}));
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 3);
    table.SetRowCount(5);
    EXPECT_TRUE(Selected().empty());
    EXPECT_EQ(notes.Take(), "") << "changes of the program";
    QTest::keyClick(&View(), Qt::Key_Tab);
    EXPECT_TRUE(edit.HasFocus()) << "Tab leaves the table";
}

}  // namespace
}  // namespace sv::qt::tests
