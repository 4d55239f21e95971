#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/Dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>
#include <memory>
#include <string_view>

namespace sv::qt::tests {

namespace {

class QtControlsTest : public QtTest {};

/// A numeric field as the library has it: keys and wheel reach it by way of the field.
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

TEST_F(QtControlsTest, AFieldIsTypedInto) {
    Edit edit(&frame);
    Place(edit, {10, 10}, {120, 26});
    edit.ChangeModifyHdl(notes.To<'m'>());
    edit.ChangeLoseFocusHdl(notes.To<'l'>());
    edit.SetText("1");
    ShowFrame();
    edit.GrabFocus();
    EXPECT_TRUE(edit.HasFocus());
    EXPECT_EQ(notes.Take(), "") << "the program's own change";
    QWidget& field = WidgetOf(edit);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, "2,5");
    EXPECT_EQ(edit.GetText(), "12,5");
    EXPECT_EQ(notes.Take(), "mmm");

    edit.ChangeMaxTextLen(5);
    QTest::keyClicks(&field, "678");
    EXPECT_EQ(edit.GetText(), "12,56");
    edit.SetReadOnly(true);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(edit.GetText(), "12,56");
    edit.SetReadOnly(false);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(edit.GetText(), "") << "cut";
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.GetText(), "12,56") << "pasted";
    EXPECT_EQ(notes.Take(), "mmm");
    frame.GrabFocus();
    EXPECT_EQ(notes.Take(), "l");
}

TEST_F(QtControlsTest, TextsInTheirCodePages) {
    struct Row {
        TextPage page;
        char const* bytes;
        std::u16string_view shown;
    };
    static constexpr Row rows[] = {
        {TextPage::Western,
         "Gr\xF6\xDF"
         "e \x80",
         u"Größe €"},
        {TextPage::Japanese, "\x90\x46\x82\xCC\xB6 A\\", u"色のｶ A\\"},
        {TextPage::Chinese, "\xD1\xD5\xC9\xAB 1", u"颜色 1"},
    };
    Edit edit(&frame);
    Place(edit, {10, 10}, {120, 26});
    ShowFrame();
    auto& field = static_cast<QLineEdit&>(WidgetOf(edit));
    for (Row const& row : rows) {
        ChangeTextPage(row.page);
        edit.SetText(row.bytes);
        EXPECT_EQ(field.text(), QStringView(row.shown));
        QTest::keyClick(&field, Qt::Key_End);
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QStringView(row.shown).toString(),
                            Qt::NoModifier);
        EXPECT_EQ(edit.GetText(), String(row.bytes) + row.bytes);
    }
    ChangeTextPage(TextPage::Western);
    edit.SetText("a");
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QStringView(u"色").toString(), Qt::NoModifier);
    EXPECT_EQ(edit.GetText(), "a?");
    EXPECT_EQ(field.text(), "a?") << "what is not kept does not show";
}

TEST_F(QtControlsTest, KeysAndWheelSpin) {
    SpunEdit edit(&frame);
    SpinButton spin(&frame);
    spin.ChangeUpHdl(notes.To<'u'>());
    spin.ChangeDownHdl(notes.To<'d'>());
    Place(edit, {10, 10}, {80, 30});
    Place(spin, {90, 10}, {15, 30});
    ShowFrame();
    QTest::keyClick(&WidgetOf(edit), Qt::Key_Up);
    QTest::keyClick(&WidgetOf(edit), Qt::Key_Down);
    TurnWheel(WidgetOf(edit), 240);
    TurnWheel(WidgetOf(edit), -60);
    TurnWheel(WidgetOf(edit), -60);
    EXPECT_EQ(edit.spun, "uduud");

    QWidget& arrows = WidgetOf(spin);
    for (int const y : {5, 5, 25}) QTest::mouseClick(arrows.childAt(7, y), Qt::LeftButton);
    TurnWheel(arrows, -120);
    EXPECT_EQ(notes.Take(), "uudd");
    QTest::mousePress(arrows.childAt(7, 25), Qt::LeftButton);
    EXPECT_TRUE(RunUntil([this] { return notes.log.size() > 2; })) << "it repeats while it is held down";
    QTest::mouseRelease(arrows.childAt(7, 25), Qt::LeftButton);
    EXPECT_EQ(notes.Take().substr(0, 3), "ddd");
    spin.Disable();
    QTest::mouseClick(arrows.childAt(7, 5), Qt::LeftButton);
    TurnWheel(arrows, 120);
    EXPECT_EQ(notes.Take(), "");
}

TEST_F(QtControlsTest, ButtonsByMouseAndKeyboard) {
    PushButton push(&frame);
    CheckBox check(&frame);
    BitmapButton face(&frame, Bitmap(Size(8, 8)));
    push.SetText("Cut & ~paste");
    check.SetText("~Grey");
    face.SetText("~Open");
    push.ChangeClickHdl(notes.To<'p'>());
    check.ChangeClickHdl(notes.To<'c'>());
    face.ChangeClickHdl(notes.To<'f'>());
    Place(push, {10, 10}, {80, 30});
    Place(check, {10, 50}, {80, 30});
    Place(face, {10, 90}, {80, 30});
    ShowFrame();
    EXPECT_EQ(static_cast<QAbstractButton&>(WidgetOf(push)).text(), "Cut && &paste");
    for (Window* const window :
         {static_cast<Window*>(&push), static_cast<Window*>(&check), static_cast<Window*>(&face)}) {
        QWidget& widget = WidgetOf(*window);
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, {10, 15});
        EXPECT_EQ(notes.log.size(), 1U) << "mouse";
        window->GrabFocus();
        QTest::keyClick(&widget, Qt::Key_Space);
        QTest::keyClick(&widget, Qt::Key_Return);
        EXPECT_EQ(notes.log, std::string(3, notes.log[0]));
        window->Disable();
        QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, {10, 15});
        window->Enable();
        EXPECT_EQ(notes.Take().size(), 3U);
    }
    EXPECT_TRUE(check.IsChecked());
    EXPECT_TRUE(static_cast<QAbstractButton&>(WidgetOf(check)).isChecked());
    for (Qt::Key const key : {Qt::Key_P, Qt::Key_G, Qt::Key_O})
        QTest::keyClick(WidgetOf(frame).windowHandle(), key, Qt::AltModifier);
    EXPECT_TRUE(RunUntil([this] { return notes.log == "pcf"; })) << notes.log;
    EXPECT_FALSE(check.IsChecked());

    QTest::mousePress(&WidgetOf(face), Qt::LeftButton, Qt::NoModifier, {10, 15});
    QTest::mouseRelease(&WidgetOf(face), Qt::LeftButton, Qt::NoModifier, {10, 50});
    EXPECT_EQ(notes.Take(), "pcf") << "let go outside";
}

TEST_F(QtControlsTest, ListsAreChosenFrom) {
    ListBoxControl list(&frame);
    DropDownListBox drop(&frame);
    list.ChangeSelectHdl(notes.To<'l'>());
    drop.ChangeSelectHdl(notes.To<'d'>());
    for (ListBoxControl* const box : {&list, static_cast<ListBoxControl*>(&drop)}) {
        for (char const* const entry : {"a", "c", "\xE4"}) box->InsertEntry(entry);
        box->InsertEntry("b", 1);
    }
    Place(list, {10, 10}, {80, 100});
    Place(drop, {110, 10}, {80, 30});
    ShowFrame();
    auto& shown = static_cast<QListWidget&>(WidgetOf(list));
    ASSERT_EQ(shown.count(), 4);
    EXPECT_EQ(shown.item(1)->text(), "b");
    EXPECT_EQ(shown.item(3)->text(), u"ä");
    list.GrabFocus();
    EXPECT_EQ(list.GetSelectEntryPos(), ListBox::End) << "the focus selects nothing";
    list.SelectEntryPos(1);
    drop.SelectEntryPos(0);
    EXPECT_EQ(notes.Take(), "");
    QTest::keyClick(&shown, Qt::Key_Down);
    EXPECT_EQ(list.GetSelectEntryPos(), 2);
    QTest::keyClick(&WidgetOf(drop), Qt::Key_Down);
    EXPECT_EQ(drop.GetSelectEntryPos(), 1);
    EXPECT_EQ(notes.Take(), "ld");
    list.Clear();
    EXPECT_EQ(shown.count(), 0);
    EXPECT_EQ(notes.Take(), "");
}

TEST_F(QtControlsTest, ALongListShowsItsLastLine) {
    ListBoxControl list(&frame);
    Place(list, {10, 10}, {80, 100});
    for (unsigned short i = 0; i < 200; ++i) {
        list.InsertEntry(String(i));
        list.SelectEntryPos(i);
        list.SelectEntryPos(ListBox::End);
    }
    ShowFrame();
    auto const& shown = static_cast<QListWidget&>(WidgetOf(list));
    EXPECT_TRUE(shown.viewport()->rect().contains(shown.visualItemRect(shown.item(199)).center()));
    EXPECT_TRUE(shown.selectedItems().isEmpty());
}

TEST_F(QtControlsTest, AnInputDialog) {
    ModalDialog dialog(&frame);
    Edit edit(&dialog);
    BitmapButton ok(&dialog, Bitmap(), 0x110);
    PushButton below(&frame);
    dialog.SetPosSizePixel({60, 60}, {200, 100});
    Place(edit, {10, 10}, {80, 26});
    Place(ok, {10, 50}, {80, 26});
    Place(below, {10, 10}, {80, 26});
    edit.ChangeLoseFocusHdl(notes.To<'l'>());
    ok.ChangeClickHdl(notes.To<'o'>());
    below.ChangeClickHdl(notes.To<'b'>());
    ShowFrame();

    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(dialog.IsInExecute());
        EXPECT_TRUE(WidgetOf(dialog).isVisible());
        QTest::mouseClick(&WidgetOf(below), Qt::LeftButton);
        EXPECT_EQ(notes.Take(), "") << "shut off";
        EXPECT_TRUE(WidgetOf(below).isEnabled()) << "and not greyed";
        EXPECT_TRUE(RunUntil([&] { return WidgetOf(dialog).isActiveWindow(); }));
        edit.GrabFocus();
        QTest::keyClicks(&WidgetOf(edit), "7");
        QTest::keyClick(&WidgetOf(edit), Qt::Key_Return);
        EXPECT_EQ(notes.Take(), "lo") << "the field takes its text over before the button runs";
        QTest::keyClick(&WidgetOf(edit), Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.Execute(), 0);
    EXPECT_EQ(edit.GetText(), "7");
    EXPECT_FALSE(WidgetOf(dialog).isVisible());
    QTest::mouseClick(&WidgetOf(below), Qt::LeftButton);
    EXPECT_EQ(notes.Take(), "b");

    QTimer::singleShot(0, [&] { WidgetOf(dialog).close(); });
    EXPECT_EQ(dialog.Execute(), 0) << "closed by the desktop";
}

TEST_F(QtControlsTest, ADarkDesktop) {
    QPalette const before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    frame.ChangeBackgroundBrush(Brush(ColorName::White));
    FixedText text(&frame);
    FixedText help(&frame);
    Edit edit(&frame);
    help.ChangeBackgroundBrush(Brush(ColorName::Help));
    int y = 10;
    for (Window* const window :
         {static_cast<Window*>(&text), static_cast<Window*>(&help), static_cast<Window*>(&edit)}) {
        window->SetText("MMMM");
        Place(*window, {10, static_cast<std::int16_t>(y)}, {80, 26});
        y += 40;
    }
    ShowFrame();
    QImage const picture = PictureOf(frame);
    EXPECT_EQ(picture.pixelColor(85, 12), QColor(Qt::white)) << "the ground of the window shows";
    EXPECT_EQ(picture.pixelColor(85, 52), ToQt(ColorOf(ColorName::Help)));
    EXPECT_LT(picture.pixelColor(85, 102).lightness(), 100) << "the desktop's own";
    for (Window const* const window :
         {static_cast<Window*>(&text), static_cast<Window*>(&help), static_cast<Window*>(&edit)}) {
        int darkest = 255;
        int lightest = 0;
        Point const corner = window->GetPosPixel();
        for (int line = 5; line < 21; ++line) {
            for (int x = 4; x < 40; ++x) {
                int const lightness = picture.pixelColor(corner.X() + x, corner.Y() + line).lightness();
                darkest = std::min(darkest, lightness);
                lightest = std::max(lightest, lightness);
            }
        }
        EXPECT_GT(lightest - darkest, 130) << "text and ground differ";
    }
    QApplication::setPalette(before);
}

}  // namespace

}  // namespace sv::qt::tests
