// A window on the screen, and the actions of a user, for tests.
#pragma once

#include "SV/core/Application.h"
#include "SV/core/detail/TextPage.h"
#include "SV/qt/QtWindow.h"
#include "SV/ui/Controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace sv::qt::tests {

[[nodiscard]] inline QWidget& WidgetOf(Window const& window) { return QtWindow::Of(window).Widget(); }

/// Renders a window, one pixel per pixel of the window on a screen of any density.
[[nodiscard]] inline QImage PictureOf(Window const& window) {
    QImage picture(WidgetOf(window).size(), QImage::Format_RGB32);
    WidgetOf(window).render(&picture);
    return picture;
}

/// Runs the loop until the condition holds; false if it does not within ten seconds.
[[nodiscard]] inline bool RunUntil(std::function<bool()> const& condition) {
    for (int turn = 0; turn < 2000; ++turn) {
        if (condition()) return true;
        Application::Reschedule();
    }
    return condition();
}

/// Records which links were called.
struct Notes {
    std::string log;

    template <char Name>
    long Note(void* /*sender*/) {
        log += Name;
        return 0;
    }
    template <char Name>
    [[nodiscard]] Link To() {
        return Link::To<&Notes::Note<Name>>(*this);
    }
    [[nodiscard]] std::string Take() { return std::exchange(log, {}); }
};

/// The actions of a user while the program waits in nested loops: each is taken as soon as its condition
/// holds.
class Person {
  public:
    Person() {
        timer_.callOnTimeout([this] { Act(); });
        timer_.start(5);
    }
    ~Person() { EXPECT_TRUE(acts_.empty()) << "a condition did not come true"; }
    Person(Person const&) = delete;
    Person& operator=(Person const&) = delete;

    void Then(std::function<bool()> when, std::function<void()> act) {
        acts_.emplace_back(std::move(when), std::move(act));
    }

  private:
    void Act() {
        if (acts_.empty() || !acts_.front().first()) return;
        auto const act = std::move(acts_.front().second);
        acts_.pop_front();
        act();
    }

    QTimer timer_;
    std::deque<std::pair<std::function<bool()>, std::function<void()>>> acts_;
};

class QtTest : public testing::Test {
  protected:
    QtTest() { frame.SetPosSizePixel({40, 40}, {300, 200}); }
    ~QtTest() override { ChangeTextPage(TextPage::Western); }

    /// Shows a control in the frame.
    static void Place(Window& control, Point position, Size size) {
        control.SetPosSizePixel(position, size);
        control.Show();
    }
    void ShowFrame() {
        frame.Show();
        frame.ToTop();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&WidgetOf(frame)));
    }

    Window frame{nullptr};
    Notes notes;
};

}  // namespace sv::qt::tests
