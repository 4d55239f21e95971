// The window of ColourDesk with real keys and clicks, and a chart from the real measuring server.
#include "Apps/Tests/ColourDesk/DeskFixture.h"
#include "Apps/Tests/HQMSERV/Desktop.h"
#include "Apps/suite/SuiteServices.h"
#include "SV/Tests/qt/QtFixture.h"
#include "SV/qt/QtBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <QTimer>
#include <set>

namespace colourdesk::test {

namespace {

using sv::qt::tests::RunUntil;
using sv::qt::tests::WidgetOf;

class DeskEventsTest : public DeskTest {
  protected:
    DeskEventsTest() {
        desk.Show();
        desk.ToTop();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Widget()));
    }
    [[nodiscard]] QWidget& Widget() const { return WidgetOf(desk); }
    [[nodiscard]] QTableView& Table() const { return *Widget().findChild<QTableView*>(); }
    template <class Type>
    [[nodiscard]] Type& Named(char const* name) const {
        for (Type* const found : Widget().findChildren<Type*>()) {
            if (found->accessibleName() == name) return *found;
        }
        throw std::runtime_error(std::string("no control ") + name);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(Widget().windowHandle(), key, modifiers);
    }
};

TEST_F(DeskEventsTest, TabReachesEveryControlAndEachHasAName) {
    ASSERT_TRUE(desk.Open(Chart));
    Table().setFocus();
    std::set<QWidget*> reached;
    while (reached.insert(QApplication::focusWidget()).second) Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Table());
    EXPECT_EQ(reached.size(), 20U)
        << "table, 4 conditions, 2 buttons and formula of the panel, 4 limits, 8 buttons";
    for (QWidget const* const control : reached) {
        auto const* const button = qobject_cast<QAbstractButton const*>(control);
        EXPECT_FALSE(control->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
            << control->metaObject()->className();
    }
}

TEST_F(DeskEventsTest, ShortcutsAndAccessKeysWorkFromTheTable) {
    ASSERT_TRUE(desk.Open(InkSeries));
    Table().setFocus();
    Press(Qt::Key_End);
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(desk.GetSheet()->Conditions().standard, 14U);
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(RunUntil([&] { return desk.GetSheet()->Conditions().paper == 14U; })) << "As paper white";
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(RunUntil([&] { return desk.GetSamples().GetSelectedRows().size() == 15; })) << "Select all";
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_FALSE(desk.GetPlot().IsAutoScale());
    Press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NE(Status().find("390 nm"), std::string::npos) << Status();
}

TEST_F(DeskEventsTest, ConditionsLimitsAndLanguageApplyAtOnce) {
    ASSERT_TRUE(desk.Open(InkSeries));
    desk.UseAsStandard(14);
    auto& limit = Named<QLineEdit>("Limit");
    limit.setFocus();
    limit.selectAll();
    QTest::keyClicks(&limit, "10");
    EXPECT_EQ(desk.GetSheet()->Verdict().within, 3U) << "the differences are 1.85, 4.69 and 9.81";
    Named<QComboBox>("Illuminant").setFocus();
    Press(Qt::Key_Home);
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::A);
    auto& language = Named<QComboBox>("Language");
    language.setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(desk.GetSamples().GetColumns()[0].title, "Probe");
    EXPECT_EQ(QApplication::focusWidget(), &language);
}

TEST_F(DeskEventsTest, FormulaAndLanguageKeepSelectionAndWidths) {
    ASSERT_TRUE(desk.Open(Chart));
    desk.SelectSamples({2, 14});
    Table().selectionModel()->setCurrentIndex(Table().model()->index(14, 0), QItemSelectionModel::NoUpdate);
    Table().setColumnWidth(0, 333);
    Named<QComboBox>("Formula").setFocus();
    Press(Qt::Key_Down);
    Named<QComboBox>("Language").setFocus();
    Press(Qt::Key_Down);
    std::set<int> marked;
    for (QModelIndex const& row : Table().selectionModel()->selectedRows()) marked.insert(row.row());
    EXPECT_EQ(marked, (std::set{2, 14}));
    EXPECT_EQ(Table().currentIndex().row(), 14);
    EXPECT_EQ(Table().columnWidth(0), 333);
    EXPECT_EQ(Table().model()->headerData(0, Qt::Horizontal).toString(), "Probe");
    EXPECT_EQ(Table().model()->headerData(8, Qt::Horizontal).toString(), "dL*");
}

TEST_F(DeskEventsTest, ThePlotsCursorFollowsThePointer) {
    ASSERT_TRUE(desk.Open(InkSeries));
    QWidget& widget = WidgetOf(*desk.GetPlot().GetChildren().front());
    QTest::mouseMove(&widget, QPoint(widget.width() / 2, 20));
    ASSERT_TRUE(RunUntil([&] { return desk.GetPlot().GetCursorIndex().has_value(); }));
    EXPECT_NEAR(*desk.GetPlot().GetCursorIndex(), 17.5, 0.5) << "the middle of 380 to 730 nm";
    Widget().resize(60, 40);
    EXPECT_TRUE(RunUntil([&] { return desk.GetSizePixel().Width() < 200; })) << "no part fits";
}

class DeskMeasuringTest : public testing::Test {
  protected:
    hqmserv::test::Desktop desktop;
    suite::SuiteServices services{"ColourDesk", "1.0", 1};
    Texts texts;
};

TEST_F(DeskMeasuringTest, MeasuresAChartAndOffersToSaveIt) {
    kv::test::BoxScript const boxes;
    DeskWindow desk(Texts::Stem, nullptr);
    desk.Show();
    desk.Measure();
    EXPECT_TRUE(boxes.seen.empty());
    ASSERT_NE(desk.GetSheet(), nullptr);
    EXPECT_EQ(desk.GetSheet()->Rows().size(), 24U);
    EXPECT_TRUE(desk.IsUnsaved());
    ASSERT_TRUE(desk.Save(desktop.File("measured.dat")));
    EXPECT_FALSE(desk.IsUnsaved());
    desk.Measure();

    // With real boxes: Escape and the cross keep the measurement, Discard quits.
    auto const before = sv::SetBoxHandler(&sv::qt::ShowBox);
    auto const answer = [](auto const& act) {
        QTimer::singleShot(300, [act] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "The measurements have not been saved. Save them?");
            act(*box);
        });
    };
    answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    desk.WasClosed();
    EXPECT_TRUE(desk.IsUnsaved());
    answer([](QMessageBox& box) { box.close(); });
    desk.Measure();
    EXPECT_TRUE(desk.IsUnsaved());
    EXPECT_TRUE(desk.IsEnabled());
    answer([](QMessageBox& box) { box.button(QMessageBox::Discard)->click(); });
    desk.WasClosed();
    sv::SetBoxHandler(before);
    sv::Application::Execute();  // WasClosed has ended it
}

TEST_F(DeskMeasuringTest, PatchesMeasuredBeforeTheUserCancelsAreKept) {
    hqmserv::test::ServerProgram const slow({hqmserv::test::Chart, "--measuring-time", "100"});
    kv::test::BoxScript const boxes;
    DeskWindow desk(Texts::Stem, nullptr);
    desk.Show();
    QTimer::singleShot(1000, [] {
        QWidget* const dialog = QApplication::activeWindow();
        ASSERT_NE(dialog, nullptr);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    desk.Measure();
    ASSERT_NE(desk.GetSheet(), nullptr);
    std::size_t const measured = desk.GetSheet()->Rows().size();
    EXPECT_LT(measured, 24U);
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].text,
              "The measurement stopped after " + std::to_string(measured) + " patches: interrupted");
    EXPECT_TRUE(desk.IsEnabled());
}

}  // namespace

}  // namespace colourdesk::test
