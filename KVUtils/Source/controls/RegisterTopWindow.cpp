#include "KVUtils/Source/controls/RegisterTopWindow.h"

#include <utility>

namespace kv {

constinit sv::Window* RegisterTopWindow::current_ = nullptr;

RegisterTopWindow::RegisterTopWindow(sv::Window* window) noexcept
    : previous_(std::exchange(current_, window)) {}

RegisterTopWindow::~RegisterTopWindow() { current_ = previous_; }

sv::Window* RegisterTopWindow::GetActiveTopWindow() noexcept {
    return current_ != nullptr ? current_ : sv::Application::GetAppWindow();
}

}  // namespace kv
