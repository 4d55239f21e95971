#include "KVUtils/Source/frame/Language.h"
#include "SV/Tests/qt/QtFixture.h"
#include "SV/core/Boxes.h"

#include <QFile>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <string>

namespace sv::qt::tests {
namespace {

class QtWindowTest : public QtTest {};

std::string Describe(MouseEvent const& event) {
    Point const place = event.GetPosPixel();
    return std::to_string(place.X()) + ',' + std::to_string(place.Y()) + (event.IsLeft() ? "* " : " ");
}

// An area that logs its events.
class Noted final : public Window {
  public:
    using Window::Window;
    void Paint(Rectangle const& area) override {
        painted = area;
        DrawPixel({1, 1}, Color(0xFFFF, 0, 0));
    }
    void Resize() override { log += "resize "; }
    void MouseMove(MouseEvent const& event) override { log += "move " + Describe(event); }
    void MouseButtonDown(MouseEvent const& event) override { log += "down " + Describe(event); }
    void MouseButtonUp(MouseEvent const& event) override { log += "up " + Describe(event); }
    void WasClosed() override { log += "closed "; }

    std::string log;
    Rectangle painted;
};

TEST_F(QtWindowTest, PaintsAnAreaAndReportsTheMouse) {
    Noted area(&frame);
    area.ChangeBackgroundBrush(Brush(Color(0, 0, 0xFFFF)));
    Place(area, {20, 20}, {50, 40});
    ShowFrame();
    QImage const picture = PictureOf(frame);
    EXPECT_EQ(area.painted.BottomRight(), Point(49, 39));
    EXPECT_EQ(picture.pixelColor(21, 21), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(20, 20), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(70, 60), QColor(Qt::white)) << "the background of the frame";

    area.log = "";
    QWindow* const window = WidgetOf(frame).windowHandle();
    QTest::mouseMove(window, {30, 30});
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, {30, 30});
    QTest::mouseMove(window, {10, 90});
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, {10, 90});
    QTest::mouseMove(window, {11, 91});
    EXPECT_TRUE(RunUntil([&] { return area.log.find("up") != std::string::npos; }));
    EXPECT_EQ(area.log, "move 10,10 down 10,10* move -10,70* up -10,70 ");

    area.log = "";
    area.CaptureMouse();
    QTest::mouseMove(window, {12, 92});
    EXPECT_TRUE(RunUntil([&] { return area.log == "move -8,72 "; })) << area.log;
    area.ReleaseMouse();
    QTest::mouseMove(window, {13, 93});
    Application::Reschedule();
    EXPECT_EQ(area.log, "move -8,72 ");
}

TEST_F(QtWindowTest, TheUserResizesMovesAndCloses) {
    Noted window(nullptr);
    window.SetPosSizePixel({50, 60}, {100, 80});
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&WidgetOf(window)));
    window.log = "";
    WidgetOf(window).resize(150, 90);
    EXPECT_TRUE(RunUntil([&] { return window.log == "resize "; })) << window.log;
    EXPECT_EQ(window.GetSizePixel(), Size(150, 90));
    WidgetOf(window).move(70, 71);
    EXPECT_TRUE(RunUntil([&] { return window.GetPosPixel() == Point(70, 71); }));
    WidgetOf(window).close();
    EXPECT_EQ(window.log, "resize closed ");
    EXPECT_TRUE(WidgetOf(window).isVisible()) << "the program decides";
}

TEST_F(QtWindowTest, ClosingTheMainWindowEndsTheProgram) {
    ShowFrame();
    QTimer watchdog;
    bool isLate = false;
    watchdog.callOnTimeout([&] {
        isLate = true;
        Application::Quit();
    });
    watchdog.start(5'000);
    QTimer::singleShot(0, [this] { WidgetOf(frame).close(); });
    Application::Execute();
    EXPECT_FALSE(isLate);
}

// The files with the translations are a package of their own.
TEST_F(QtWindowTest, BoxesAreInTheLanguageOfTheProgram) {
    auto const yes = [] {
        QString text;
        QTimer::singleShot(0, [&text] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            text = box->button(QMessageBox::Yes)->text();
            box->reject();
        });
        MessBox(nullptr, WB_YES_NO, "", "?").Execute();
        return text.remove('&');
    };
    EXPECT_EQ(yes(), "Yes");
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_de.qm")) GTEST_SKIP();
    kv::Language::SetLanguageByCountryCode(49);
    EXPECT_EQ(yes(), "Ja");
    kv::Language::SetLanguageByCountryCode(1);
    EXPECT_EQ(yes(), "Yes");
}

/// A window that is destroyed when its button is pressed.
struct Leaving {
    std::unique_ptr<Window> window = std::make_unique<Window>(nullptr);
    std::unique_ptr<PushButton> button = std::make_unique<PushButton>(window.get());

    long Go(void* /*sender*/) {
        button = nullptr;
        window = nullptr;
        Application::Reschedule();  // Qt has not finished the press
        return 0;
    }
};

TEST_F(QtWindowTest, WindowsMayBeDestroyedInTheirHandlers) {
    Leaving leaving;
    leaving.button->ChangeClickHdl(Link::To<&Leaving::Go>(leaving));
    leaving.button->Show();
    leaving.window->Show();
    QPointer<QWidget> const widget = &WidgetOf(*leaving.button);
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_EQ(leaving.window, nullptr);
    EXPECT_TRUE(RunUntil([&] { return widget.isNull(); })) << "the widget is deleted too";

    auto parent = std::make_unique<Window>(nullptr);
    Edit child(parent.get());
    parent = nullptr;
    child.SetText("outlives its parent");
}

TEST_F(QtWindowTest, BoxesReturnTheButtonPressed) {
    struct Row {
        WinBits style;
        QMessageBox::StandardButton pressed;
        BoxAnswer answer;
    };
    static constexpr Row rows[] = {
        {WB_OK, QMessageBox::Ok, BoxAnswer::Ok},
        {WB_OK_CANCEL, QMessageBox::Cancel, BoxAnswer::Cancel},
        {WB_YES_NO | WB_DEF_YES, QMessageBox::No, BoxAnswer::No},
        {WB_YES_NO, QMessageBox::Yes, BoxAnswer::Yes},
        {WB_YES_NO | WB_DEF_YES, QMessageBox::NoButton, BoxAnswer::Yes},  // Return
    };
    ShowFrame();
    for (Row const& row : rows) {
        QTimer::singleShot(0, [&row] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), u"Größe?");
            if (row.pressed == QMessageBox::NoButton) {
                QTest::keyClick(box, Qt::Key_Return);
            } else {
                QTest::mouseClick(static_cast<QWidget*>(box->button(row.pressed)), Qt::LeftButton);
            }
        });
        EXPECT_EQ(MessBox(&frame, row.style, "", "Gr\xF6\xDF\x65?").Execute(), row.answer);
    }
}

}  // namespace
}  // namespace sv::qt::tests
