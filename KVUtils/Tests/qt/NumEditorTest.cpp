#include "KVUtils/Source/controls/NumEditor.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QLineEdit>
#include <QToolButton>
#include <QWheelEvent>

namespace kv::test {

namespace {

using namespace sv::qt::tests;

class NumEditorOnQt : public QtTest {
  protected:
    NumEditorOnQt() { number.setUnit("nm"); }
    void SetUp() override {
        ShowFrame();
        number.GrabFocus();
    }
    [[nodiscard]] QLineEdit& Field() const { return static_cast<QLineEdit&>(WidgetOf(number)); }
    void TurnWheel(int angle) const {
        QPointF const middle = Field().rect().center();
        QWheelEvent event(middle, Field().mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Field(), &event);
    }

    NumEditor number{&frame, {10, 10}, 1, 0, 100, 8};
};

TEST_F(NumEditorOnQt, KeysAndWheelWalkTheLadder) {
    number.ChangeValueChangedHdl(notes.To<'v'>());
    for (auto const key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) QTest::keyClick(&Field(), key);
    EXPECT_EQ(number.getValue(), 0.9);
    TurnWheel(240);
    EXPECT_EQ(number.getValue(), 1.25);
    TurnWheel(-120);
    EXPECT_EQ(number.getValue(), 1);
    EXPECT_EQ(notes.Take(), "vvvvvv");
    EXPECT_EQ(Field().text(), "1");
}

TEST_F(NumEditorOnQt, IsTypedIntoAndLeft) {
    sv::Edit next(&frame);
    Place(next, {10, 60}, {80, 24});
    QTest::keyClick(&Field(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&Field(), "1e3");
    EXPECT_EQ(number.getValue(), 1) << "not yet a number of the range";
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_TRUE(next.HasFocus()) << "the arrows are passed over";
    EXPECT_EQ(Field().text(), "100");
    QTest::keyClick(&WidgetOf(next), Qt::Key_Backtab);
    QTest::keyClick(&Field(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&Field(), "abc");
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_EQ(Field().text(), "1") << "what the program set last";
    QWidget const& arrows = WidgetOf(*frame.GetChildren()[1]);
    QTest::mouseClick(arrows.childAt(arrows.width() / 2, arrows.height() / 4), Qt::LeftButton);
    EXPECT_EQ(number.getValue(), 1.25);
    EXPECT_TRUE(next.HasFocus());
}

}  // namespace

}  // namespace kv::test
