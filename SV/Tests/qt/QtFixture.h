// A window on the screen and the events of a person, for tests.
#pragma once

#include "SV/core/Application.h"
#include "SV/core/TextPage.h"
#include "SV/qt/QtWindow.h"
#include "SV/ui/Controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <functional>
#include <string>

namespace sv::qt::tests {

[[nodiscard]] inline QWidget& WidgetOf(Window const& window) { return QtWindow::Of(window).Widget(); }

/// What a window shows, a pixel of the picture for one of the window on a screen of any density.
[[nodiscard]] inline QImage PictureOf(Window const& window) {
    QImage picture(WidgetOf(window).size(), QImage::Format_RGB32);
    WidgetOf(window).render(&picture);
    return picture;
}

/// Turns the loop until the condition holds; false when it did not within ten seconds.
[[nodiscard]] inline bool RunUntil(std::function<bool()> const& condition) {
    for (int turn = 0; turn < 2000; ++turn) {
        if (condition()) return true;
        Application::Reschedule();
    }
    return condition();
}

/// Notes which link was called.
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
