#include "KVUtils/Source/dialogs/MyFileDialog.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <functional>
#include <utility>

namespace kv::test {

namespace {

using namespace sv::qt::tests;

class MyFileDialogOnQt : public QtTest {
  protected:
    MyFileDialogOnQt() { Make("da.csv"); }

    void Make(QString const& name) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    [[nodiscard]] sv::String Path(char const* name) const {
        return (folder.path() + '/').toStdString() + name;
    }
    [[nodiscard]] static QFileDialog& Dialog() {
        return *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    }
    /// Once the dialog has the keyboard.
    void WithDialog(std::function<void()> act) {
        person.Then(
            [] {
                auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                return dialog != nullptr && dialog->isActiveWindow();
            },
            std::move(act));
    }
    /// Types into the dialog's name field, and Return.
    void Type(QString const& name) {
        WithDialog([name] {
            auto* const field = Dialog().findChild<QLineEdit*>("fileNameEdit");
            field->setFocus();
            field->selectAll();
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, name, Qt::NoModifier);
            QTest::keyClick(field, Qt::Key_Return);
        });
    }
    /// Answers a box that says so.
    void Answer(char const* text, QMessageBox::StandardButton button) {
        person.Then([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; },
                    [text, button] {
                        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                        EXPECT_TRUE(box->text().contains(text)) << box->text().toStdString();
                        QTest::mouseClick(box->button(button), Qt::LeftButton);
                    });
    }

    Person person;
    QTemporaryDir folder;
};

TEST_F(MyFileDialogOnQt, SavesUnderANameWithAnExtension) {
    ShowFrame();
    MyFileDialog dialog(&frame, MyFileDialog::Save, "Export");
    dialog.AddFilter("Tabellen (alle)", "*.csv *.txt");
    dialog.SetPath(folder.path().toStdString());
    WithDialog([this] {
        EXPECT_EQ(Dialog().directory().path(), folder.path());
        EXPECT_EQ(Dialog().nameFilters().first(), "Tabellen [alle] (*.csv *.txt)");
    });
    Type("da");
    Answer("da.csv", QMessageBox::No);
    Type(QStringView(u"größe").toString());
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_EQ(dialog.GetPath(), Path("gr\xF6\xDF"
                                     "e.csv"));
    Type("da");
    Answer("da.csv", QMessageBox::Yes);
    EXPECT_EQ(dialog.Execute(), 1);
    EXPECT_EQ(dialog.GetPath(), Path("da.csv"));
}

TEST_F(MyFileDialogOnQt, ANameOutsideTheCodePageIsRefused) {
    QString const foreign = QStringView(u"色.csv").toString();
    Make(foreign);
    ShowFrame();
    MyFileDialog dialog(&frame, MyFileDialog::Open, "Open");
    dialog.SetPath(Path("da.csv"));
    WithDialog([] { EXPECT_EQ(Dialog().selectedFiles().first().section('/', -1), "da.csv"); });
    Type(foreign);
    Answer("cannot write", QMessageBox::Ok);
    WithDialog([] { QTest::keyClick(&Dialog(), Qt::Key_Escape); });
    EXPECT_EQ(dialog.Execute(), 0);
    EXPECT_EQ(dialog.GetPath(), Path("da.csv"));
}

}  // namespace

}  // namespace kv::test
