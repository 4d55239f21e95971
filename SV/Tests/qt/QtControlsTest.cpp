// The controls as a user operates them, by mouse and keyboard.
#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/Dialog.h"
#include "SV/ui/Styles.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWheelEvent>
#include <array>
#include <string_view>

namespace sv::qt::tests {
namespace {

class SpunEdit final : public Edit {
  public:
    using Edit::Edit;
    void WasSpun(bool up) override { spun += up ? 'u' : 'd'; }

    std::string spun;
};

void TurnWheel(QWidget& widget, int angle) {
    QPointF const middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

// A dialog with a control of each kind.
class QtControlsTest : public QtTest {
  protected:
    QtControlsTest() {
        dialog.SetPosSizePixel({60, 60}, {300, 300});
        label.SetText("~Weight");
        spinLabel.SetText("Paper ~white");
        check.SetText("~Grey");
        push.SetText("Cut & ~measure");
        face.SetText("~Open");
        close.SetText("~Close");
        for (char const* const entry : {"one", "three"}) {
            list.InsertEntry(entry);
            drop.InsertEntry(entry);
        }
        list.InsertEntry("two", 1);
        drop.InsertEntry("two", 1);
        drop.SelectEntryPos(0);
        // From the bottom up, since the order of creation counts and not that of the positions.
        int y = 5;
        for (std::size_t i = dialog.GetChildren().size(); i-- > 0; y += 26)
            Place(*dialog.GetChildren()[i], {10, y}, {120, 24});
        edit.ChangeModifyHdl(notes.To<'m'>());
        edit.ChangeLoseFocusHdl(notes.To<'e'>());
        spin.ChangeUpHdl(notes.To<'u'>());
        spin.ChangeDownHdl(notes.To<'d'>());
        check.ChangeClickHdl(notes.To<'c'>());
        push.ChangeClickHdl(notes.To<'p'>());
        face.ChangeClickHdl(notes.To<'f'>());
        close.ChangeClickHdl(notes.To<'x'>());
        list.ChangeSelectHdl(notes.To<'l'>());
        drop.ChangeSelectHdl(notes.To<'d'>());
        dialog.Show();
        dialog.ToTop();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&WidgetOf(dialog))); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(WidgetOf(dialog).windowHandle(), key, modifiers);
        for (int turn = 0; turn < 3; ++turn) Application::Reschedule();
    }

    ModelessDialog dialog{nullptr};
    FixedText label{&dialog};
    Edit edit{&dialog};
    FixedText spinLabel{&dialog};
    SpinButton spin{&dialog};
    SpunEdit second{&dialog};
    CheckBox check{&dialog};
    ListBoxControl list{&dialog};
    DropDownListBox drop{&dialog};
    PushButton push{&dialog};
    BitmapButton face{&dialog, Bitmap(Size(8, 8))};
    BitmapButton close{&dialog, Bitmap(), StyleBitDefaultButton};
};

TEST_F(QtControlsTest, ReportsWhatTheUserChangesAndNotTheProgram) {
    edit.SetText("1");
    list.GrabFocus();
    EXPECT_EQ(list.GetSelectEntryPos(), ListBox::End) << "the focus selects nothing";
    notes.log.clear();
    list.SelectEntryPos(0);
    drop.SelectEntryPos(1);
    check.Check(true);
    list.Clear();
    edit.ChangeMaxTextLen(3);
    edit.GrabFocus();
    EXPECT_EQ(notes.Take(), "");
    QTest::keyClick(&WidgetOf(edit), Qt::Key_End);
    QTest::keyClicks(&WidgetOf(edit), "2,5");
    EXPECT_EQ(edit.GetText(), "12,");
    edit.SetReadOnly(true);
    Press(Qt::Key_Backspace);
    second.GrabFocus();
    EXPECT_EQ(edit.GetText(), "12,");
    EXPECT_EQ(notes.Take(), "mme");
}

TEST_F(QtControlsTest, ConvertsTextsToAndFromTheCodePage) {
    struct Row {
        TextPage page;
        std::u16string_view pasted;
        char const* kept;
        std::u16string_view shown;
    };
    static constexpr Row rows[] = {
        {TextPage::Western, u"Größe € …", "Gr\xF6\xDF\x65 \x80 \x85", u"Größe € …"},
        {TextPage::Western, u"ΔE 色", "?E ?", u"?E ?"},
        {TextPage::Japanese, u"色のｶ A\\", "\x90\x46\x82\xCC\xB6 A\\", u"色のｶ A\\"},
        {TextPage::Chinese, u"油墨颜色", "\xD3\xCD\xC4\xAB\xD1\xD5\xC9\xAB", u"油墨颜色"},
    };
    auto const& field = static_cast<QLineEdit&>(WidgetOf(edit));
    edit.GrabFocus();
    for (Row const& row : rows) {
        ChangeTextPage(row.page);
        QApplication::clipboard()->setText(QStringView(row.pasted).toString());
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(edit.GetText(), row.kept);
        EXPECT_EQ(field.text(), QStringView(row.shown));
        EXPECT_EQ(notes.Take(), "m");
        edit.SetText("");
        edit.SetText(row.kept);
        EXPECT_EQ(field.text(), QStringView(row.shown));
    }
}

TEST_F(QtControlsTest, SpinsByKeysArrowsAndWheel) {
    QWidget& field = WidgetOf(second);
    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Down);
    for (int const angle : {240, -60, -60}) TurnWheel(field, angle);
    EXPECT_EQ(second.spun, "uduud") << "two notches up, one down in two halves";
    spin.ChangeSizePixel({15, 30});
    QWidget& arrows = WidgetOf(spin);
    for (int const y : {5, 5, 25}) QTest::mouseClick(arrows.childAt(7, y), Qt::LeftButton);
    TurnWheel(arrows, -120);
    EXPECT_EQ(notes.Take(), "uudd");
    spin.Disable();
    second.Disable();
    QTest::mouseClick(arrows.childAt(7, 5), Qt::LeftButton);
    TurnWheel(arrows, 120);
    TurnWheel(field, 120);
    EXPECT_EQ(notes.Take() + second.spun, "uduud");
}

TEST_F(QtControlsTest, KeysPressButtonsAndChooseEntries) {
    struct Row {
        Window* where;
        Qt::Key key;
        char const* pressed;
    };
    Row const rows[] = {
        {&check, Qt::Key_Space, "c"},  {&push, Qt::Key_Space, "p"},  {&face, Qt::Key_Space, "f"},
        {&push, Qt::Key_Return, "p"},  {&face, Qt::Key_Return, "f"}, {&face, Qt::Key_Enter, "f"},
        {&list, Qt::Key_Down, "l"},    {&drop, Qt::Key_Down, "d"},   {&drop, Qt::Key_T, "d"},
        {&edit, Qt::Key_Return, "ex"}, {&list, Qt::Key_Return, "x"}, {&drop, Qt::Key_Return, "x"},
    };
    for (Row const& row : rows) {
        row.where->GrabFocus();
        notes.log.clear();
        Press(row.key);
        EXPECT_EQ(notes.Take(), row.pressed) << QKeySequence(row.key).toString().toStdString();
    }
    EXPECT_EQ(drop.GetSelectEntryPos(), 2) << "one step down, then by its first letter";
    EXPECT_TRUE(check.IsChecked());
    for (Window* const button : std::array<Window*, 3>{&check, &push, &face}) {
        QWidget& widget = WidgetOf(*button);
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, {10, 15});
        button->Disable();
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, {10, 15});
        button->Enable();
    }
    EXPECT_EQ(notes.Take(), "cpf");
    QTest::mousePress(&WidgetOf(face), Qt::LeftButton, Qt::NoModifier, {10, 15});
    QTest::mouseRelease(&WidgetOf(face), Qt::LeftButton, Qt::NoModifier, {10, 50});
    EXPECT_EQ(notes.Take(), "") << "released outside";

    drop.GrabFocus();
    Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_TRUE(RunUntil([] { return QApplication::activePopupWidget() == nullptr; }));
    EXPECT_TRUE(dialog.IsVisible()) << "Escape closes the open list first";
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.IsVisible());
}

TEST_F(QtControlsTest, TabFollowsTheOrderOfCreation) {
    std::array<Window*, 8> const stops{&edit, &second, &check, &list, &drop, &push, &face, &close};
    stops.front()->GrabFocus();
    for (std::size_t i = 1; i <= stops.size(); ++i) {
        Press(Qt::Key_Tab);
        EXPECT_TRUE(stops[i % stops.size()]->HasFocus()) << i;
    }
}

TEST_F(QtControlsTest, MnemonicsPressButtonsAndLeadToFields) {
    close.GrabFocus();
    notes.log.clear();
    for (auto const& [key, pressed] : {std::pair(Qt::Key_G, "c"), std::pair(Qt::Key_M, "p"),
                                       std::pair(Qt::Key_O, "f"), std::pair(Qt::Key_C, "x")}) {
        Press(key, Qt::AltModifier);
        EXPECT_TRUE(RunUntil([&] { return notes.log == pressed; })) << notes.log;
        notes.log.clear();
    }
    close.GrabFocus();
    spinLabel.SetText("~Paper white");
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(edit.HasFocus());
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(second.HasFocus()) << "past the arrows, which take no keys";

    FixedText last(&dialog);
    last.SetText("no ~control follows & none");
    auto const& shown = static_cast<QLabel&>(WidgetOf(last));
    EXPECT_EQ(shown.text(), "no control follows & none");
    Edit late(&dialog);
    last.Show();
    EXPECT_EQ(shown.buddy(), &WidgetOf(late)) << "created after the text was set";

    second.SetAccessibleName("Papierwei\xDF");
    struct Row {
        Window const* window;
        QAccessible::Role role;
        std::u16string_view name;
    };
    Row const rows[] = {
        {&edit, QAccessible::EditableText, u"Weight"}, {&second, QAccessible::EditableText, u"Papierweiß"},
        {&check, QAccessible::CheckBox, u"Grey"},      {&push, QAccessible::Button, u"Cut & measure"},
        {&face, QAccessible::Button, u"Open"},         {&label, QAccessible::StaticText, u"Weight"},
    };
    for (Row const& row : rows) {
        auto const* const seen = QAccessible::queryAccessibleInterface(&WidgetOf(*row.window));
        EXPECT_EQ(seen->role(), row.role);
        EXPECT_EQ(seen->text(QAccessible::Name), QStringView(row.name));
    }
}

TEST_F(QtControlsTest, ALongListShowsTheEntrySelectedLast) {
    ListBoxControl hidden(&frame);
    Place(hidden, {10, 10}, {80, 100});
    for (unsigned short i = 0; i < 200; ++i) {
        hidden.InsertEntry(String(i));
        hidden.SelectEntryPos(i);
        hidden.SelectEntryPos(ListBox::End);
    }
    ShowFrame();
    auto const& shown = static_cast<QListWidget&>(WidgetOf(hidden));
    EXPECT_TRUE(shown.viewport()->rect().contains(shown.visualItemRect(shown.item(199)).center()));
    EXPECT_TRUE(shown.selectedItems().isEmpty());
}

TEST_F(QtControlsTest, AModalDialogBlocksTheWindowBelow) {
    ModalDialog modal(&frame);
    PushButton below(&frame);
    modal.SetPosSizePixel({60, 60}, {200, 100});
    Place(below, {10, 10}, {80, 26});
    below.ChangeClickHdl(notes.To<'b'>());
    ShowFrame();
    notes.log.clear();
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(modal.IsInExecute() && WidgetOf(modal).isVisible());
        QTest::mouseClick(&WidgetOf(below), Qt::LeftButton);
        EXPECT_EQ(notes.Take(), "");
        EXPECT_TRUE(WidgetOf(below).isEnabled()) << "blocked, not greyed";
        WidgetOf(modal).close();
    });
    EXPECT_EQ(modal.Execute(), 0);
    EXPECT_FALSE(WidgetOf(modal).isVisible());
    QTest::mouseClick(&WidgetOf(below), Qt::LeftButton);
    EXPECT_EQ(notes.Take(), "b");
}

TEST_F(QtControlsTest, TextsKeepTheProgramsBackgroundOnADarkDesktop) {
    QPalette const before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    FixedText text(&frame);
    FixedText help(&frame);
    Edit field(&frame);
    help.ChangeBackgroundBrush(Brush(ColorName::Help));
    for (Window* const window : frame.GetChildren())
        Place(*window, {10, window == &text ? 10 : window == &help ? 50 : 90}, {80, 26});
    ShowFrame();
    QImage const picture = PictureOf(frame);
    EXPECT_EQ(picture.pixelColor(85, 12), QColor(Qt::white)) << "that of the window";
    EXPECT_EQ(picture.pixelColor(85, 52), ToQt(ColorOf(ColorName::Help)));
    EXPECT_LT(picture.pixelColor(85, 102).lightness(), 100) << "that of the desktop";
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace sv::qt::tests
