// What waits in loops of its own while a person goes on: buttons with their help, and the text window.
#include "KVUtils/Source/controls/KOBitmapButton.h"
#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/TextFenster.h"
#include "KVUtils/Source/controls/WINDOWPL.h"
#include "KVUtils/Source/controls/detail/StandardButtons.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QElapsedTimer>
#include <memory>

namespace kv::test {

namespace {

using namespace sv::qt::tests;

class WaitingOnQt : public QtTest {
  protected:
    WaitingOnQt() { button->SetBalloonText("Save ~all"); }
    void SetUp() override { ShowFrame(); }
    ~WaitingOnQt() override { BalloonWindow::DeleteBalloonWindow(); }

    /// Once the loop turns, and not before.
    void Soon(std::function<void()> act) {
        person.Then([] { return true; }, std::move(act));
    }
    void MoveMouse(QPoint place) const { QTest::mouseMove(WidgetOf(frame).windowHandle(), place); }
    [[nodiscard]] static bool WaitFor(int milliseconds) {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) sv::Application::Reschedule();
        return true;
    }

    std::unique_ptr<KOBitmapButton> button = std::make_unique<KOBitmapButton>(
        &frame, sv::Bitmap(), "~Save", sv::Point(10, 10), sv::Size(120, 30), 1, 0, 0x10);
    Person person;
};

TEST_F(WaitingOnQt, HelpComesAndGoes) {
    Soon([this] { MoveMouse({30, 20}); });
    EXPECT_TRUE(RunUntil([] { return BalloonWindow::Exists(); }));
    EXPECT_EQ(BalloonWindow::Instance()->GetChildren().front()->GetText(), "Save all");
    EXPECT_TRUE(WidgetOf(*BalloonWindow::Instance()).isVisible());
    Soon([this] { MoveMouse({200, 150}); });
    EXPECT_TRUE(RunUntil([] { return !BalloonWindow::Exists(); }));
    EXPECT_FALSE(button->HasCapture());

    Soon([this] { MoveMouse({30, 20}); });
    Soon([this] { MoveMouse({200, 150}); });
    EXPECT_TRUE(WaitFor(1000));
    EXPECT_FALSE(BalloonWindow::Exists()) << "left before its time";
}

TEST_F(WaitingOnQt, AButtonMayGoInItsOwnWait) {
    QPointer<QWidget> const widget = &WidgetOf(*button);
    Soon([this] { MoveMouse({30, 20}); });
    Soon([this] { button = nullptr; });
    EXPECT_TRUE(RunUntil([&widget] { return widget == nullptr; }));
    EXPECT_TRUE(WaitFor(1000));
    EXPECT_FALSE(BalloonWindow::Exists());

    // And a window with its buttons, from one of them.
    auto dialog = std::make_unique<sv::ModelessDialog>(nullptr);
    dialog->ChangeSizePixel({300, 200});
    auto bar = std::make_unique<KOBitmapButtonBar>(dialog.get(), ButtonSize(0));
    struct Leaving {
        std::unique_ptr<sv::ModelessDialog>& dialog;
        std::unique_ptr<KOBitmapButtonBar>& bar;
        long Go(KOBitmapButton* /*sender*/) {
            bar = nullptr;
            dialog = nullptr;
            (void)WaitFor(50);
            return 0;
        }
    } leaving{dialog, bar};
    auto* const close = bar->AddButton(sv::Link::To<&Leaving::Go>(leaving), detail::CloseButton, 0);
    close->SetBalloonText("Close");
    dialog->Show();
    QPointer<QWidget> const window = &WidgetOf(*dialog);
    QPoint const place(close->GetPosPixel().X() + 5, close->GetPosPixel().Y() + 5);
    Soon([&window, place] { QTest::mouseMove(window->windowHandle(), place); });
    Soon([&window, place] { QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place); });
    EXPECT_TRUE(RunUntil([&window] { return window == nullptr; }));
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(WaitingOnQt, TheTextWindowWaitsForItsButton) {
    TextFenster window(&frame, "Messages", 400, 300);
    window.AddLine("one");
    auto& close = dynamic_cast<KOBitmapButton&>(*window.GetChildren().back());
    Soon([&close] { QTest::mouseClick(&WidgetOf(close), Qt::LeftButton); });
    window.AnzeigenUndWarten(0);
    EXPECT_TRUE(window.IsVisible());
    Soon([&window] { QTest::keyClick(WidgetOf(window).windowHandle(), Qt::Key_Return); });
    window.AnzeigenUndWarten(0);
    EXPECT_TRUE(window.IsVisible()) << "closing is its default button";
    Soon([&window] { QTest::keyClick(WidgetOf(window).windowHandle(), Qt::Key_Escape); });
    window.AnzeigenUndWarten(0);
    EXPECT_FALSE(window.IsVisible());
}

}  // namespace

}  // namespace kv::test
