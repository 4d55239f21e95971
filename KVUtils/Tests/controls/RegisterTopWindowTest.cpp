#include "KVUtils/Source/controls/RegisterTopWindow.h"

#include <gtest/gtest.h>

namespace kv::test {

namespace {

TEST(RegisterTopWindowTest, WindowsComeBackInReverseOrder) {
    int places[3] = {};
    auto const window = [&places](int i) { return reinterpret_cast<sv::Window*>(&places[i]); };
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), nullptr);
    sv::Application::SetAppWindow(window(0));
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    {
        RegisterTopWindow const outer(window(1));
        {
            RegisterTopWindow const inner(window(2));
            EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(2));
        }
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(1));
        RegisterTopWindow const none(nullptr);
        EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    }
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), window(0));
    sv::Application::SetAppWindow(nullptr);
}

}  // namespace

}  // namespace kv::test
