// The window of ColourDesk by real keys and clicks, and a chart through the real measuring server.
#include "Apps/Tests/ColourDesk/DeskFixture.h"
#include "Apps/Tests/HQMSERV/Desktop.h"
#include "Apps/suite/SuiteServices.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
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
    /// The only one of this type and name.
    template <class Type>
    [[nodiscard]] Type& Named(char const* name) const {
        for (Type* const found : Widget().findChildren<Type*>()) {
            if (found->accessibleName() == name) return *found;
        }
        ADD_FAILURE() << "nothing is called " << name;
        throw std::runtime_error(name);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(Widget().windowHandle(), key, modifiers);
    }
};

TEST_F(DeskEventsTest, TabGoesToEveryControlAndBack) {
    ASSERT_TRUE(desk.Open(Chart));
    auto const walk = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        Table().setFocus();
        std::vector<QWidget*> path;
        do {
            path.push_back(QApplication::focusWidget());
            Press(key, modifiers);
        } while (QApplication::focusWidget() != &Table() && path.size() < 50);
        return path;
    };
    std::vector<QWidget*> const forwards = walk(Qt::Key_Tab, {});
    // The table, 4 conditions, 2 buttons of the panel, the measure, 4 limits, 8 buttons at the right.
    EXPECT_EQ(forwards.size(), 20U);
    EXPECT_EQ(std::set<QWidget*>(forwards.begin(), forwards.end()).size(), forwards.size());
    std::vector<QWidget*> backwards = walk(Qt::Key_Backtab, Qt::ShiftModifier);
    std::reverse(backwards.begin() + 1, backwards.end());
    EXPECT_EQ(backwards, forwards);
    for (QWidget const* const control : forwards) {
        auto const* const button = qobject_cast<QAbstractButton const*>(control);
        EXPECT_FALSE(control->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
            << control->metaObject()->className() << " has no name for a screen reader";
    }
}

TEST_F(DeskEventsTest, ShortcutsAndLettersWorkFromTheTable) {
    ASSERT_TRUE(desk.Open(InkSeries));
    Table().setFocus();
    Press(Qt::Key_End);
    EXPECT_EQ(desk.GetSamples().GetSelectedRows().front(), 14);
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(desk.GetSheet()->Conditions().standard, 14U);
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(RunUntil([&] { return desk.GetSheet()->Conditions().paper == 14U; })) << "As paper white";
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(RunUntil([&] { return desk.GetSamples().GetSelectedRows().size() == 15; })) << "Select all";
    EXPECT_TRUE(desk.GetPlot().IsAutoScale());
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_FALSE(desk.GetPlot().IsAutoScale());
    Press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NE(Status().find("390 nm"), std::string::npos) << Status();
}

TEST_F(DeskEventsTest, ConditionsAndLimitsJudgeAnew) {
    ASSERT_TRUE(desk.Open(InkSeries));
    desk.UseAsStandard(14);
    auto& limit = Named<QLineEdit>("Limit");
    limit.setFocus();
    limit.selectAll();
    QTest::keyClicks(&limit, "10");
    EXPECT_EQ(desk.GetSheet()->Verdict().within, 3U) << "the differences are 1.85, 4.69 and 9.81";
    Press(Qt::Key_Up);
    EXPECT_EQ(desk.GetSheet()->Conditions().tolerances.difference, 12.5);

    auto& illuminant = Named<QComboBox>("Illuminant");
    illuminant.setFocus();
    Press(Qt::Key_Home);
    EXPECT_TRUE(desk.GetSheet()->Conditions().illuminant == kv::IllumType::A);
    auto& language = Named<QComboBox>("Language");
    language.setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(desk.GetSamples().GetColumns()[0].title, "Probe");
    EXPECT_EQ(QApplication::focusWidget(), &language) << "whoever changes the language stays where they are";
}

TEST_F(DeskEventsTest, ThePlotsCursorFollowsThePointer) {
    ASSERT_TRUE(desk.Open(InkSeries));
    sv::Window* const diagram = desk.GetPlot().GetChildren().front();
    QWidget& widget = WidgetOf(*diagram);
    QTest::mouseMove(&widget, QPoint(widget.width() / 2, 20));
    ASSERT_TRUE(RunUntil([&] { return desk.GetPlot().GetCursorIndex().has_value(); }));
    int const index = *desk.GetPlot().GetCursorIndex();
    EXPECT_TRUE(index == 17 || index == 18) << "in the middle of 380 to 730 nm: " << index;
}

TEST_F(DeskEventsTest, GrowsWithItsWindow) {
    ASSERT_TRUE(desk.Open(Chart));
    int const width = desk.GetSamples().GetSizePixel().Width();
    Widget().resize(Widget().width() + 100, Widget().height() + 50);
    ASSERT_TRUE(RunUntil([&] { return desk.GetSamples().GetSizePixel().Width() == width + 100; }));
    Widget().resize(60, 40);
    ASSERT_TRUE(RunUntil([&] { return desk.GetSizePixel().Width() < 200; }));
}

/// With the server and a post office.
class DeskMeasuringTest : public testing::Test {
  protected:
    hqmserv::test::Desktop desktop;
    suite::SuiteServices services{"ColourDesk", "1.0", 1};
};

TEST_F(DeskMeasuringTest, MeasuresAChartAndAsksBeforeItIsLost) {
    Texts const texts;
    kv::test::BoxScript const boxes{sv::BoxAnswer::No};
    DeskWindow desk(Texts::Stem, nullptr);
    desk.Show();
    desk.Measure();
    EXPECT_TRUE(boxes.seen.empty());
    ASSERT_NE(desk.GetSheet(), nullptr);
    EXPECT_EQ(desk.GetSheet()->Rows().size(), 24U);
    EXPECT_TRUE(desk.IsUnsaved());

    std::string const path = desktop.File("measured.dat");
    ASSERT_TRUE(desk.Save(path));
    EXPECT_FALSE(desk.IsUnsaved());
    desk.Measure();
    desk.WasClosed();
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].text, "These measurements are in no file yet. Save them now?");
    // The end of the program that this asked for.
    sv::Application::Execute();
}

TEST_F(DeskMeasuringTest, WhatWasMeasuredBeforeAPersonGaveUpIsKept) {
    hqmserv::test::ServerProgram const slow({hqmserv::test::Chart, "--measuring-time", "100"});
    Texts const texts;
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
    EXPECT_GT(measured, 0U);
    EXPECT_LT(measured, 24U);
    ASSERT_EQ(boxes.seen.size(), 1U);
    EXPECT_EQ(boxes.seen[0].text,
              "The measurement has ended after " + std::to_string(measured) + " patches: interrupted");
    EXPECT_TRUE(desk.IsEnabled());
}

}  // namespace

}  // namespace colourdesk::test
