#include "KVUtils/Source/messaging/detail/ServerLock.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "SV/core/Application.h"
#include "SV/ui/Window.h"

namespace kv::detail {

namespace {

void ShowWaiting(bool waits) {
    sv::Application::Wait(waits);
    sv::Window* const window = RegisterTopWindow::GetActiveTopWindow();
    if (window != nullptr) window->Enable(!waits);
}

}  // namespace

void ServerLock::Take(sv::String const& client, bool showsWaiting) {
    owner_ = client;
    if (showsWaiting) ShowWaiting(true);
    ++count_;
}

void ServerLock::Release() {
    // Intentional: a release without a lock counts too. The count can fall below 0, and the next lock then
    // takes two releases to undo.
    if (--count_ != 0) return;
    ShowWaiting(false);
    owner_ = Nobody;
}

void ServerLock::ReleaseAll(sv::String const& client) {
    if (!IsOwned() || client != owner_) return;
    count_ = 1;
    Release();
}

}  // namespace kv::detail
