#include "SV/Tests/qt/QtFixture.h"
#include "SV/ui/Dialog.h"
#include "SV/ui/Styles.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <array>

namespace sv::qt::tests {

namespace {

// A dialog with a control of each kind.
class QtKeyboardTest : public QtTest {
  protected:
    QtKeyboardTest() {
        dialog.SetPosSizePixel({60, 60}, {300, 300});
        label.SetText("~Weight");
        spinLabel.SetText("Paper ~white");
        check.SetText("~Grey");
        push.SetText("~Measure");
        face.SetText("~Open");
        close.SetText("~Close");
        for (char const* const entry : {"one", "two", "three"}) {
            list.InsertEntry(entry);
            drop.InsertEntry(entry);
        }
        drop.SelectEntryPos(0);
        // The last one first: the order in which they show does not count.
        int y = 5;
        for (std::size_t i = dialog.GetChildren().size(); i-- > 0; y += 26)
            Place(*dialog.GetChildren()[i], {10, y}, {120, 24});
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
    Edit second{&dialog};
    CheckBox check{&dialog};
    ListBoxControl list{&dialog};
    DropDownListBox drop{&dialog};
    PushButton push{&dialog};
    BitmapButton face{&dialog, Bitmap(Size(8, 8))};
    BitmapButton close{&dialog, Bitmap(), StyleBitDefaultButton};

    std::array<Window*, 8> stops{&edit, &second, &check, &list, &drop, &push, &face, &close};
};

TEST_F(QtKeyboardTest, TabGoesRoundBothWays) {
    stops.front()->GrabFocus();
    for (std::size_t i = 1; i <= stops.size(); ++i) {
        Press(Qt::Key_Tab);
        EXPECT_TRUE(stops[i % stops.size()]->HasFocus()) << i;
    }
    for (std::size_t i = stops.size(); i-- > 0;) {
        Press(Qt::Key_Tab, Qt::ShiftModifier);
        EXPECT_TRUE(stops[i]->HasFocus()) << i << " backwards";
    }
    check.Disable();
    list.Hide();
    second.GrabFocus();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(drop.HasFocus()) << "past what takes no input";
}

TEST_F(QtKeyboardTest, KeysThatPress) {
    struct Row {
        Window* where;
        Qt::Key key;
        char const* pressed;
    };
    Row const rows[] = {
        {&check, Qt::Key_Space, "c"}, {&push, Qt::Key_Space, "p"},  {&face, Qt::Key_Space, "f"},
        {&push, Qt::Key_Return, "p"}, {&face, Qt::Key_Return, "f"}, {&face, Qt::Key_Enter, "f"},
        {&list, Qt::Key_Down, "l"},   {&drop, Qt::Key_Down, "d"},   {&list, Qt::Key_T, "l"},
        {&drop, Qt::Key_T, "d"},      {&edit, Qt::Key_Return, "x"}, {&list, Qt::Key_Return, "x"},
        {&drop, Qt::Key_Return, "x"},
    };
    for (Row const& row : rows) {
        row.where->GrabFocus();
        Press(row.key);
        EXPECT_EQ(notes.Take(), row.pressed) << QKeySequence(row.key).toString().toStdString();
    }
    EXPECT_EQ(drop.GetSelectEntryPos(), 2) << "by its first letter, after one step down";
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.IsVisible());
    EXPECT_EQ(notes.Take(), "");
}

TEST_F(QtKeyboardTest, EscapeClosesAnOpenListBeforeTheDialog) {
    drop.GrabFocus();
    Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_TRUE(RunUntil([] { return QApplication::activePopupWidget() == nullptr; }));
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_EQ(drop.GetSelectEntryPos(), 0);
}

TEST_F(QtKeyboardTest, LettersOfTexts) {
    for (auto const& [key, pressed] : {std::pair(Qt::Key_G, "c"), std::pair(Qt::Key_M, "p"),
                                       std::pair(Qt::Key_O, "f"), std::pair(Qt::Key_C, "x")}) {
        Press(key, Qt::AltModifier);
        EXPECT_TRUE(RunUntil([&] { return notes.log == pressed; })) << notes.log;
        notes.log.clear();
    }
    close.GrabFocus();
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(edit.HasFocus() || second.HasFocus()) << "two texts with one letter take turns";
    spinLabel.SetText("~Paper white");
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(edit.HasFocus());
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(second.HasFocus()) << "past the arrows, which take no keys";
    EXPECT_EQ(static_cast<QLabel&>(WidgetOf(spinLabel)).text(), "&Paper white");

    FixedText last(&dialog);
    last.SetText("no ~control follows & none");
    EXPECT_EQ(static_cast<QLabel&>(WidgetOf(last)).text(), "no control follows & none");
    Edit late(&dialog);
    last.Show();
    EXPECT_EQ(static_cast<QLabel&>(WidgetOf(last)).buddy(), &WidgetOf(late)) << "made after the text was set";
}

TEST_F(QtKeyboardTest, NamesForScreenReaders) {
    second.SetAccessibleName("Papierwei\xDF");
    struct Row {
        Window const* window;
        QAccessible::Role role;
        std::u16string_view name;
    };
    Row const rows[] = {
        {&edit, QAccessible::EditableText, u"Weight"}, {&second, QAccessible::EditableText, u"Papierweiß"},
        {&check, QAccessible::CheckBox, u"Grey"},      {&push, QAccessible::Button, u"Measure"},
        {&face, QAccessible::Button, u"Open"},         {&label, QAccessible::StaticText, u"Weight"},
    };
    for (Row const& row : rows) {
        auto const* const seen = QAccessible::queryAccessibleInterface(&WidgetOf(*row.window));
        EXPECT_EQ(seen->role(), row.role);
        EXPECT_EQ(seen->text(QAccessible::Name), QStringView(row.name));
    }
}

TEST_F(QtKeyboardTest, TheClipboardInEachCodePage) {
    struct Row {
        TextPage page;
        std::u16string_view copied;
        char const* kept;
        std::u16string_view shown;
    };
    static constexpr Row rows[] = {
        {TextPage::Western, u"Größe € …", "Gr\xF6\xDF\x65 \x80 \x85", u"Größe € …"},
        {TextPage::Western, u"ΔE 色", "?E ?", u"?E ?"},
        {TextPage::Japanese, u"印刷の色 ABC", "\x88\xF3\x8D\xFC\x82\xCC\x90\x46 ABC", u"印刷の色 ABC"},
        {TextPage::Chinese, u"油墨颜色", "\xD3\xCD\xC4\xAB\xD1\xD5\xC9\xAB", u"油墨颜色"},
    };
    auto const& field = static_cast<QLineEdit&>(WidgetOf(edit));
    edit.ChangeModifyHdl(notes.To<'m'>());
    edit.GrabFocus();
    for (Row const& row : rows) {
        ChangeTextPage(row.page);
        QApplication::clipboard()->setText(QStringView(row.copied).toString());
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(edit.GetText(), row.kept);
        EXPECT_EQ(field.text(), QStringView(row.shown));
        EXPECT_EQ(notes.Take(), "m");
        QApplication::clipboard()->clear();
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), QStringView(row.shown));
    }
}

}  // namespace

}  // namespace sv::qt::tests
