#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/Table.h"

#include <QHeaderView>
#include <QTableView>
#include <string>
#include <vector>

namespace sv::qt::tests {

namespace {

/// Cells that say where they are, and counts how many were asked for.
class Places final : public Table {
  public:
    using Table::Table;
    [[nodiscard]] TableCell GetCell(int row, int column) const override {
        ++asked;
        return {std::to_string(row) + ":" + std::to_string(column), {}, row == 1};
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

    Places table{&frame};
};

TEST_F(QtTableTest, ShowsItsCellsAndTheTitlesOfTheirColumns) {
    table.SetRowCount(3);
    ShowFrame();
    QAbstractItemModel const& model = *View().model();
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.index(2, 1).data().toString(), "2:1");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QString::fromUtf8("Zahl \u00FC"));
    EXPECT_TRUE(model.index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(model.index(0, 1).data(Qt::TextAlignmentRole).toInt(), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(QtTableTest, AskedOnlyForWhatShows) {
    table.SetRowCount(2000);
    ShowFrame();
    static_cast<void>(PictureOf(frame));
    EXPECT_GT(table.asked, 0);
    EXPECT_LT(table.asked, 2000) << "of 4000 cells";
}

TEST_F(QtTableTest, KeysAndMouseSelectRows) {
    table.SetRowCount(10);
    ShowFrame();
    table.GrabFocus();
    QTest::keyClick(&View(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_Down);
    QTest::keyClick(&View(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), (std::vector<int>{1, 2}));
    EXPECT_NE(notes.Take(), "");
    QTest::keyClick(&View(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected().size(), 10U);
    QRect const row4 = View().visualRect(View().model()->index(4, 0));
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, row4.center());
    EXPECT_EQ(Selected(), std::vector<int>{4});
    static_cast<void>(notes.Take());

    table.SelectRows({7, 2, 99, 3});
    EXPECT_EQ(Selected(), (std::vector<int>{2, 3, 7}));
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 3);
    table.SetRowCount(5);
    EXPECT_TRUE(Selected().empty());
    EXPECT_EQ(notes.Take(), "") << "the program's own changes";
}

TEST_F(QtTableTest, TabLeavesIt) {
    Edit edit(&frame);
    Place(edit, {0, 182}, {80, 18});
    table.SetRowCount(2);
    ShowFrame();
    table.GrabFocus();
    QTest::keyClick(&View(), Qt::Key_Tab);
    EXPECT_TRUE(edit.HasFocus());
}

}  // namespace

}  // namespace sv::qt::tests
