#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/DdeNumbered.h"
#include "Platform/Tests/PeerProcess.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QTimer>
#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace sv::qt::tests {
namespace {

using Numbers = std::vector<unsigned long>;

Numbers delivered;

void UserEvent(unsigned long id, void* /*data*/) {
    delivered.push_back(id);
    if (id == 0) Application::Quit();
}

class QtLoopTest : public testing::Test {
  protected:
    QtLoopTest() {
        delivered.clear();
        Application::SetUserEventHdl(&UserEvent);
        watchdog_.callOnTimeout(&Application::Quit);
        watchdog_.start(20'000);
    }
    ~QtLoopTest() override { Application::SetUserEventHdl(nullptr); }

  private:
    QTimer watchdog_;  // a lost event is a failed expectation and not a hang
};

TEST_F(QtLoopTest, ThreadsWakeIt) {
    std::thread poster([] {
        for (unsigned long id = 50; id-- > 0;) {
            Application::PostUserEvent(id, nullptr);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    Application::Execute();
    poster.join();
    ASSERT_EQ(delivered.size(), 50U);
    EXPECT_TRUE(std::is_sorted(delivered.rbegin(), delivered.rend()));
}

TEST_F(QtLoopTest, AHandlerOfQtsMayWait) {
    bool isBack = false;
    QTimer::singleShot(0, [&] {
        std::thread([] { Application::PostUserEvent(7, nullptr); }).detach();
        isBack = RunUntil([] { return delivered == Numbers{7}; });
        Application::Quit();
    });
    Application::Execute();
    EXPECT_TRUE(isBack);
}

TEST_F(QtLoopTest, RethrowsTheExceptionOfAHandler) {
    struct Thrower : PushButton {
        using PushButton::PushButton;
        void Click() override { throw std::runtime_error("pressed"); }
    };
    Window frame(nullptr);
    Thrower button(&frame);
    button.Show();
    frame.Show();
    QTimer::singleShot(0, [&] { QTest::mouseClick(&WidgetOf(button), Qt::LeftButton); });
    EXPECT_THROW(Application::Execute(), std::runtime_error);
    EXPECT_FALSE(Application::IsInExecute());
}

TEST_F(QtLoopTest, WaitingTakesNoProcessorTime) {
    Window frame(nullptr);
    frame.Show();
    for (int i = 0; i < 20; ++i) Application::Reschedule();
    double const before = ::tests::ProcessorMs();
    QTimer::singleShot(500, [] { Application::Quit(); });
    Application::Execute();
    EXPECT_LT(::tests::ProcessorMs() - before, 250.0) << "a busy loop takes 500";
}

// Holds one message, as a transport does between its arrival and its user event.
struct OnePlace {
    static inline std::string item;
    static inline std::string held;
    static inline int overwritten = 0;
    static inline ::tests::NumberedMessages taken;
};

TEST_F(QtLoopTest, AcceptsOneMessageAtATime) {
    static constexpr unsigned long Messages = 500;
    ::tests::RuntimeDirectory const directory;
    ::tests::DdeEndpoint receiver("sink");
    receiver.onPoke = [](platform::HCONV, std::string_view item, std::string_view data) {
        OnePlace::item = item;
        if (!std::exchange(OnePlace::held, data).empty()) ++OnePlace::overwritten;
        Application::PostUserEvent(1, nullptr);
    };
    Application::SetUserEventHdl([](unsigned long, void*) {
        OnePlace::taken.Take(OnePlace::item, std::exchange(OnePlace::held, {}));
        // Handlers may wait in the loop, those that Qt calls too.
        if (OnePlace::taken.Count() % 7 == 0) Application::Reschedule();
        if (OnePlace::taken.Count() % 10 == 0) QTimer::singleShot(0, &Application::Reschedule);
        if (OnePlace::taken.Count() == Messages) Application::Quit();
    });
    ::tests::PeerProcess const sender =
        ::tests::StartPeer(KV_DDE_PEER, {"send", "sink", "S", std::to_string(Messages), "100"});
    Application::Execute();
    EXPECT_EQ(OnePlace::taken.Count(), Messages);
    EXPECT_EQ(OnePlace::taken.Faults(), 0U);
    EXPECT_EQ(OnePlace::overwritten, 0);
}

}  // namespace
}  // namespace sv::qt::tests
