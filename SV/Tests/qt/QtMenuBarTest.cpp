#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/MenuBar.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <memory>

namespace sv::qt::tests {
namespace {

class QtMenuBarTest : public QtTest {
  protected:
    QtMenuBarTest() {
        bar->InsertMenu("~Datei");
        bar->InsertItem(1, "\xD6~ffnen...", notes.To<'o'>(), "Ctrl+O");
        bar->InsertSeparator();
        bar->InsertItem(2, "~Drucken", notes.To<'d'>(), "F5");
        bar->InsertMenu("~Ansicht");
        bar->InsertItem(3, "Lupe & ~Zahl", notes.To<'z'>());
        bar->Fit();
        bar->Show();
    }
    [[nodiscard]] QAction& ActionOf(int menu, int item) const {
        auto const& shown = static_cast<QMenuBar&>(WidgetOf(*bar));
        return *shown.actions().at(menu)->menu()->actions().at(item);
    }
    /// Presses a key in the open menu or the frame.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            QTest::keyClick(popup, key, modifiers);
        } else {
            QTest::keyClick(WidgetOf(frame).windowHandle(), key, modifiers);
        }
        for (int turn = 0; turn < 3; ++turn) Application::Reschedule();
    }

    std::unique_ptr<MenuBar> bar = std::make_unique<MenuBar>(&frame);
};

TEST_F(QtMenuBarTest, ItemsAreChosenByMnemonicAndShortcut) {
    Edit edit(&frame);
    Place(edit, {10, 60}, {80, 26});
    ShowFrame();
    EXPECT_EQ(ActionOf(0, 0).text(), QStringView(u"Ö&ffnen..."));
    EXPECT_EQ(ActionOf(1, 0).text(), "Lupe && &Zahl");
    Press(Qt::Key_D, Qt::AltModifier);
    Press(Qt::Key_F);
    EXPECT_EQ(notes.Take(), "o");
    edit.GrabFocus();
    Press(Qt::Key_O, Qt::ControlModifier);
    Press(Qt::Key_F5);
    EXPECT_EQ(notes.Take(), "od") << "from a field";
    EXPECT_TRUE(edit.HasFocus());
    bar->EnableItem(1, false);
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_FALSE(ActionOf(0, 0).isEnabled());
    frame.Disable();
    Press(Qt::Key_F5);
    EXPECT_EQ(notes.Take(), "") << "neither a disabled item nor in a blocked window";

    bar->CheckItem(3, true);
    ActionOf(1, 0).trigger();
    EXPECT_EQ(notes.Take(), "z");
    EXPECT_TRUE(ActionOf(1, 0).isChecked()) << "choosing an item leaves its check mark";
    bar->CheckItem(3, false);
    EXPECT_FALSE(ActionOf(1, 0).isChecked());
}

TEST_F(QtMenuBarTest, MayBeDestroyedInItsHandler) {
    struct Leaving {
        std::unique_ptr<MenuBar>& bar;
        long Go(void* /*sender*/) {
            bar = nullptr;
            Application::Reschedule();
            return 0;
        }
    } leaving{bar};
    bar->InsertItem(4, "~Weg", Link::To<&Leaving::Go>(leaving));
    ShowFrame();
    Press(Qt::Key_A, Qt::AltModifier);
    QPointer<QWidget> const widget = &WidgetOf(*bar);
    // From inside the loop, so that the handler runs while Qt's own are still at work on the menu.
    QTimer::singleShot(0, [this] { Press(Qt::Key_W); });
    EXPECT_TRUE(RunUntil([this] { return bar == nullptr; }));
    EXPECT_TRUE(RunUntil([&widget] { return widget == nullptr; }));
}

}  // namespace
}  // namespace sv::qt::tests
